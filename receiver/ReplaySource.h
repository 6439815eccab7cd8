#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/Clock.h"
#include "platform/Event.h"
#include "receiver/ActivityMeter.h"
#include "receiver/LineSplitter.h"
#include "receiver/ReplayScript.h"
#include "receiver/SentenceSource.h"

namespace korvel {

/// Plays a receiver's log at the pace at which it was recorded, on a thread of its own.
class ReplaySource final : public SentenceSource {
 public:
    struct Options {
        std::string label{};  ///< what the pilot knows it by
        SourceKind kind = SourceKind::Replay;
        double speed = 1;   ///< how many times faster than recorded, above 0
        bool loop = false;  ///< begins again at its end; else the receiver then falls silent
    };

    /// `clock`, which must outlive it, says when a line came; the pace is that of real time.
    ReplaySource(std::vector<ReplayStep> script, Options options, const Clock& clock);
    ReplaySource(const ReplaySource&) = delete;
    ReplaySource& operator=(const ReplaySource&) = delete;
    ~ReplaySource() override { stop(); }

    std::string start(SentenceListener& listener) override;
    void stop() override;
    bool isRunning() const override { return thread_.joinable(); }
    bool isReceiving() override { return activity_.isReceiving(clock_.tickMs()); }
    SourceKind kind() const override { return options_.kind; }
    bool hasEnded() const override { return isOver_; }
    std::uint64_t bytesReceived() const override { return activity_.total(); }
    std::string label() const override { return options_.label; }
    std::string stateText() const override;

 private:
    void play(SentenceListener& listener);
    /// False once the replay is to stop. `offsetMs` counts from the beginning of this round.
    bool waitUntil(std::int64_t offsetMs);
    void deliver(std::string_view bytes, SentenceListener& listener);

    std::vector<ReplayStep> script_;
    Options options_;
    const Clock& clock_;
    ActivityMeter activity_;
    std::atomic<bool> isOver_ = false;
    Event stop_{Event::Reset::Manual};
    LineSplitter splitter_;                          // the replay's thread, while it runs
    std::chrono::steady_clock::time_point started_;  // the same; of the script's present round
    std::thread thread_;
};

}  // namespace korvel
