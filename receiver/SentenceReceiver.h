#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>

#include "base/Guarded.h"
#include "platform/Clock.h"
#include "receiver/GpsFixStore.h"
#include "receiver/GpsSurroundings.h"
#include "receiver/SentenceQueue.h"

namespace korvel {

/// Decides, line by line on the port's thread, what is a sentence worth decoding: characters,
/// checksum and kind are checked, why a line was refused goes to the trace, and accepted sentences
/// go to the queue.
///
/// Locks: takes the fix lock, lets it go, and only then takes the queue lock; never both.
class SentenceReceiver {
 public:
    /// All of them outlive the receiver.
    SentenceReceiver(GpsFixStore& store, Guarded<SentenceQueue>& queue, const Clock& clock,
                     GpsSurroundings& surroundings)
        : store_(store), queue_(queue), clock_(clock), surroundings_(surroundings) {}

    /// One line, with or without the CR at its end. Port thread.
    void onSentence(std::string_view text);

    /// Satellite sentences are queued only while somebody looks at them. Any thread.
    void setSatellitesWanted(bool wanted) { satellitesWanted_ = wanted; }

 private:
    bool checksumCorrect(std::string_view line);
    void traceAccepted(std::string_view line);

    GpsFixStore& store_;
    Guarded<SentenceQueue>& queue_;
    const Clock& clock_;
    GpsSurroundings& surroundings_;
    std::atomic<bool> satellitesWanted_{false};
    std::int64_t previousTickMs_ = 0;  // of the previous accepted sentence; 0 before the first
};

}  // namespace korvel
