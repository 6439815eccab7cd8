#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "receiver/ReplayScript.h"

namespace korvel {

class PseudoTerminal;

/// Plays a receiver's log into a pseudo-terminal at the pace at which it was recorded, so that the
/// program's own serial port reads it like a receiver. One thread of its own; everything else is
/// called from the thread that owns it. Destruction ends the thread and the device vanishes.
class ReplaySource {
 public:
    /// `speed` is how many times faster than recorded (above 0). With `loop` the script begins
    /// again at its end, else the receiver then falls silent.
    ReplaySource(std::vector<ReplayStep> script, double speed, bool loop);
    ReplaySource(const ReplaySource&) = delete;
    ReplaySource& operator=(const ReplaySource&) = delete;
    ~ReplaySource();

    /// Creates the device and starts to play. Returns an error text, empty on success.
    [[nodiscard]] std::string start();

    /// The settings text that opens the other end: device name, speed and the rest.
    std::string portSettings() const;

 private:
    void play();
    /// False once the replay is to stop.
    bool waitUntil(std::int64_t offsetMs);

    std::vector<ReplayStep> script_;
    double speed_;
    bool loop_;
    std::unique_ptr<PseudoTerminal> terminal_;
    std::chrono::steady_clock::time_point started_;  // of the script's present round
    std::mutex mutex_;                               // guards stopping_
    std::condition_variable wake_;
    bool stopping_ = false;
    std::thread thread_;
};

}  // namespace korvel
