#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <thread>

#include "base/Guarded.h"
#include "platform/Clock.h"
#include "platform/Event.h"
#include "platform/SerialDevice.h"
#include "platform/Threading.h"
#include "receiver/ActivityMeter.h"
#include "receiver/LineListener.h"
#include "receiver/LineSplitter.h"

namespace korvel {

/// A COM port that is read on a thread of its own, which hands whole lines to a listener and sends
/// what was queued. Closed, then open (open()), then running (startThread()); close() leads back
/// from either.
///
/// Threads: the owner's thread does everything but reading, sending and delivering, which the
/// port's thread does. A listener may call write() and the accessors.
///
/// Locks: the buffer lock around the bytes that are not a whole line yet, the listener lock around
/// the listener, and the pending lock around the bytes to send. No two of them are ever held
/// together, and the listener runs inside the listener lock alone.
class SerialPort {
 public:
    /// Sees all traffic, tagged "wrt" (queued), "xmt" (sent) or "rcv" (received), on the thread
    /// that it happens on.
    using TraceHook = std::function<void(std::string_view bytes, std::string_view tag)>;

    static constexpr std::size_t kMaxLineLength = 159;

    /// `clock` and `threading` must outlive the port.
    SerialPort(SerialDeviceOpener opener, const Clock& clock,
               Threading& threading = systemThreading());
    SerialPort(const SerialPort&) = delete;
    SerialPort& operator=(const SerialPort&) = delete;
    ~SerialPort();

    /// Opens "COM<n>:,<baud>,…" as 8-N-1 whatever stands behind the speed. A message text on
    /// failure, and then nothing is left open. The name is shorter than 15 characters, its colon
    /// included; a device with a longer one is reached through a link (see SerialDevice.h).
    [[nodiscard]] std::string open(std::string_view settings);

    /// Does nothing when the port is closed or runs already. A system without a thread to give
    /// makes a port whose device has failed.
    void startThread();

    /// Null detaches, and waits for a delivery in progress; then the old listener is not called
    /// any more.
    void setListener(LineListener* listener);

    /// Queues bytes for the thread and returns. While an earlier write waits to be taken it is
    /// given 100 ms, in steps of 5, and then joined: a device that takes nothing must not stop the
    /// caller, nor must a port thread that waits for a lock that the caller holds. Once 4096 bytes
    /// wait, or when the port is closed, the bytes are dropped.
    void write(std::string_view bytes);

    /// Takes the next whole line; see LineSplitter. For use without a listener.
    int readLine(std::span<char> out);

    /// Whether bytes arrive: more than 2 since the last call, or that much less than 5 s ago.
    bool isReceiving() { return activity_.isReceiving(clock_.tickMs()); }

    /// All bytes since it was made.
    std::uint64_t bytesReceived() const { return activity_.total(); }

    /// Detaches the listener, ends the thread and closes the port; also when it is closed already.
    /// Waits for the thread without limit, which is bounded all the same: the thread's transfers
    /// are aborted, so only a listener that does not return can hold it up.
    void close();

    /// CR LF at first; empty for none. Not while the port runs.
    void setDelimiter(std::string_view delimiter);

    /// Not while the port runs. Null switches tracing off.
    void setTrace(TraceHook hook);

    bool isOpen() const { return device_ != nullptr; }
    /// Set for good once the device is gone; the port is to be closed and opened again.
    bool hasReadFailed() const { return readFailed_; }
    /// The text that was opened last; empty after a failure.
    const std::string& settings() const { return settings_; }
    /// The number after the first 'M' of the settings, 0 if there is none.
    int portNumber() const { return portNumber_; }
    /// "\\.\" and the port's name; empty when closed.
    const std::string& devicePath() const { return devicePath_; }

 private:
    bool makeEvents();
    std::string setUpLine(SerialDevice& device, std::string_view speed) const;
    void stopThread();

    // The port's thread.
    void run();
    void sendPending();
    void readWaiting();
    bool readChunk();
    bool retriesAfter(SystemError error);
    void receive(std::string_view bytes);
    void deliverLines();
    bool hasListener() const;

    void trace(std::string_view bytes, std::string_view tag) const;

    SerialDeviceOpener opener_;
    const Clock& clock_;
    Threading& threading_;
    TraceHook traceHook_;

    std::unique_ptr<SerialDevice> device_;  ///< not changed while the thread runs
    std::string settings_;
    std::string devicePath_;
    int portNumber_ = 0;

    // Empty until the port is opened for the first time.
    Event stopEvent_;
    Event writeEvent_;  ///< signalled while pendingWrite_ holds bytes
    Event threadEnded_;
    std::thread thread_;
    std::atomic<std::thread::id> threadId_;
    std::atomic<bool> readFailed_ = false;
    ActivityMeter activity_;
    int failuresInARow_ = 0;  ///< port thread only
    int abortsInARow_ = 0;    ///< port thread only

    Guarded<LineSplitter> buffer_;
    Guarded<LineListener*> listener_;
    Guarded<std::string> pendingWrite_;
};

}  // namespace korvel
