#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Guarded.h"
#include "receiver/GpsFix.h"
#include "receiver/talkers/SkyTable.h"

namespace korvel {

/// The document's GpsFix and the NMEA trace, with the fix lock.
///
/// Two threads meet here: the port's thread (sentence receiver) and the main thread (everything
/// else). The fix lock guards `sentenceFlags`, `fixQuality`, `satellites` and the trace list. The
/// other fields of the fix belong to the main thread alone and are reached without it. A thread
/// that holds the queue lock may take the fix lock, never the other way round.
class GpsFixStore {
 public:
    /// The part that both threads share.
    struct Shared {
        std::uint32_t sentenceFlags = 0;
        std::int32_t fixQuality = 0;
        /// Arrival of the last line with a correct checksum, used or not; reset() leaves it.
        std::int64_t correctMs = kNeverStored;
        /// "GN", when that is who sends what is understood of GP alone; empty for nobody.
        std::string otherTalker;
        std::uint64_t correctSentences = 0;  ///< all of them so far
        SatelliteWords satellites{};
        std::vector<std::string> trace;
    };

    Guarded<Shared>& shared() { return shared_; }
    /// See Shared.
    std::string otherTalker() const { return shared_.lock()->otherTalker; }

    /// The satellites of all systems, under a lock of their own; written by the port's thread while
    /// all talkers are understood.
    Guarded<SkyTable>& sky() { return sky_; }

    /// The fields that the main thread alone writes and reads; the shared ones in it are unused.
    GpsFix& own() { return own_; }
    const GpsFix& own() const { return own_; }

    /// A consistent copy of the whole fix. Main thread.
    GpsFix copy() const;

    /// What a silent or reopened receiver leaves: quality, satellites and flags at 0, the sky
    /// empty, no other talker heard, the position open to GGA again. Position, speed, track,
    /// altitude and variation stand as they were. Main thread.
    void reset();

    void setTracing(bool on) { tracing_ = on; }
    bool tracing() const { return tracing_; }

    /// Appends "sentence:tag" to the trace list while tracing is on. When nobody fetches the list
    /// the oldest lines are dropped. Any thread that does not hold the fix lock.
    void trace(std::string_view sentence, std::string_view tag);
    /// The same for a line that is about no sentence.
    void trace(std::string line);
    /// What a port read or wrote, in the same form; bytes that are no letters show as "\r" or
    /// "\xB5".
    void traceBytes(std::string_view bytes, std::string_view tag);

    /// Hands over the trace lines, oldest first, and empties the list.
    std::vector<std::string> takeTrace();

 private:
    GpsFix own_;
    Guarded<Shared> shared_;
    Guarded<SkyTable> sky_;
    std::atomic<bool> tracing_{false};
};

}  // namespace korvel
