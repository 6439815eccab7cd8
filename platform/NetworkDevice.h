#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/NetSocket.h"
#include "platform/SerialDevice.h"
#include "platform/Threading.h"

namespace korvel {

/// The far end of a network line, and what is made of its bytes.
struct NetworkTarget {
    enum class Kind {
        Tcp,  ///< connects to the host
        Udp,  ///< listens at the address; an empty one is every one of this machine
    };

    Kind kind = Kind::Tcp;
    std::string host;
    std::uint16_t port = 0;
    /// Said as soon as the other side has said anything; empty for nothing.
    std::string answer{};
    /// The bytes are text: each line end becomes CR LF, and the end of a datagram is one.
    bool isText = true;
};

/// How far a network line has come.
enum class NetworkState { LookingUp, NoSuchHost, Connecting, Refused, CannotListen, Open };

/// What a line tells of itself; shared with whoever shows it, who may outlive the line.
struct NetworkProgress {
    std::atomic<NetworkState> state = NetworkState::LookingUp;
    std::atomic<std::uint16_t> localPort = 0;  ///< where it listens; 0 while it does not

    /// The next line of this target connects no sooner.
    std::atomic<std::int64_t> nextAttemptMs = 0;
};

/// A network line in the place of a serial one. Opening it succeeds at once: names are looked up
/// and connections made by the thread that reads, over and over until it works, and meanwhile
/// nothing arrives. An end that closes the connection is an unplugged device.
class NetworkDevice final : public SerialDevice {
 public:
    /// Both must outlive it; `progress` is shared.
    NetworkDevice(NetworkTarget target, std::shared_ptr<NetworkProgress> progress,
                  Threading& threading);
    NetworkDevice(const NetworkDevice&) = delete;
    NetworkDevice& operator=(const NetworkDevice&) = delete;
    ~NetworkDevice() override = default;

    // A network has no line settings and no time-outs of its own.
    SystemError readLineSettings(LineSettings& /*settings*/) override { return kNoError; }
    SystemError applyLineSettings(const LineSettings& /*settings*/) override { return kNoError; }
    SystemError setTimeouts(const SerialTimeouts& /*timeouts*/) override { return kNoError; }

    Transfer read(std::span<char> into) override;
    bool waitsForBytes() const override { return true; }
    Transfer write(std::string_view bytes) override;
    void clearError() override {}
    void abort() override { aborted_.set(); }

 private:
    /// A name that is being looked up on a thread of its own, which nobody waits for.
    struct LookUp {
        Event done;
        std::vector<NetAddress> addresses;  ///< set before `done` is
    };

    SystemError goOn();
    void lookUp();
    void takeAddresses(std::vector<NetAddress> addresses);
    void connectNext();
    SystemError waitForConnection();
    void tryAgainLater(NetworkState state);
    SystemError takeBytes();
    void append(std::string_view bytes);
    std::size_t handOver(std::span<char> into);

    NetworkTarget target_;
    std::shared_ptr<NetworkProgress> progress_;
    Threading& threading_;
    Event aborted_;

    std::shared_ptr<LookUp> lookUp_;     // null when none is under way
    std::vector<NetAddress> addresses_;  // still to try
    NetSocket socket_;
    bool open_ = false;
    std::optional<std::chrono::steady_clock::time_point> giveUp_;  // this attempt

    std::vector<char> received_;  // storage for one datagram or what a connection brings
    std::string arrived_;         // not handed over yet
    std::size_t handedOver_ = 0;  // of it
    bool lastWasCr_ = false;
    bool delivered_ = false;  // the last read brought something
    bool answered_ = false;
};

}  // namespace korvel
