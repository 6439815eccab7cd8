#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "base/Guarded.h"
#include "receiver/GpsFixStore.h"
#include "receiver/SentenceQueue.h"

namespace korvel {

/// Where lines go that say nothing about the fix. Called on the thread that brings the line; where
/// one is empty nothing happens.
struct LineOutlets {
    std::function<void(std::string_view bytes)> answer{};       ///< to the receiver
    std::function<void(std::string_view sentence)> attitude{};  ///< "$RPY,..." of the module
};

/// The "$RPY,..." of an attitude module that the line is, without a CR; nothing when it is none.
/// Such sentences need no checksum.
std::optional<std::string_view> attitudeSentence(std::string_view text);

/// Decides, line by line on the port's thread, what is a sentence worth decoding: characters,
/// checksum and kind are checked, why a line was refused goes to the trace, and accepted sentences
/// go to the queue.
///
/// Locks: takes the fix lock, lets it go, and only then takes the queue lock; never both.
class SentenceReceiver {
 public:
    /// Store and queue outlive the receiver.
    SentenceReceiver(GpsFixStore& store, Guarded<SentenceQueue>& queue, LineOutlets outlets)
        : store_(store), queue_(queue), outlets_(std::move(outlets)) {}

    /// One line, with or without the CR at its end, and the tick at which it came. Port thread.
    void onSentence(std::string_view text, std::int64_t arrivedMs);

    /// Satellite sentences are queued only while somebody looks at them. Any thread.
    void setSatellitesWanted(bool wanted) { satellitesWanted_ = wanted; }

 private:
    bool checksumCorrect(std::string_view line);
    void traceAccepted(std::string_view line, std::int64_t arrivedMs);

    GpsFixStore& store_;
    Guarded<SentenceQueue>& queue_;
    LineOutlets outlets_;
    std::atomic<bool> satellitesWanted_{false};
    std::int64_t previousMs_ = 0;  // arrival of the previous accepted sentence; 0 before the first
};

}  // namespace korvel
