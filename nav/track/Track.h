#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Guarded.h"
#include "geo/Geodesy.h"
#include "nav/track/TrackText.h"
#include "platform/Clock.h"

namespace korvel {

/// The breadcrumb track: where the aircraft was, when, how fast, whither and how high.
///
/// Reading and recording are safe from any thread: the recording lies inside its lock.
class Track {
 public:
    struct Recording {
        std::int64_t baseS = 0;  ///< base time, as localSeconds()
        /// In the order of recording; an empty slot is a break between two stretches.
        std::vector<std::optional<TrackPoint>> slots;

     private:
        friend class Track;
        bool breakPending_ = false;
        // Elapsed time is counted by ticks from here, so that setting the wall clock during a
        // flight neither stops the recording nor tears it.
        std::int64_t anchorS_ = 0;
        std::int64_t anchorTickMs_ = 0;
    };

    static constexpr std::uint32_t kMinimumIntervalS = 5;

    /// The clock must outlive the track.
    explicit Track(const Clock& clock) : clock_(clock) {}

    /// Records the point unless the last one is at the same position or less than 5 s old, or the
    /// position is not valid. Returns how many slots were appended: 0, 1, or 2 with a break.
    std::size_t AddTrackPoint(GeoPoint position, std::int32_t groundSpeedKt, std::int32_t trackDeg,
                              std::int32_t altitudeFt);

    /// The next point will not be joined to the last one.
    void setPendingBreak();

    /// Breaks the track and counts the time from the time of day again: for when the ticks have run
    /// ahead of it. The next point may be earlier than the last one. Returns how many slots were
    /// appended, 0 or 1.
    std::size_t returnToTimeOfDay();

    /// Replaces `text` by the text form. Always true: every recording has one.
    bool WriteTrackText(std::string& text) const;

    /// Replaces the recording. One malformed line makes the whole text refused: false, and the
    /// track is empty. Recording may go on behind what was read.
    bool ReadTrackText(std::string_view text);
    /// The same with what has been read already.
    void take(TrackLines lines);

    /// Whether what comes now can be told in seconds behind the base time: not where that lies more
    /// than a century away.
    [[nodiscard]] bool canGoOn() const;

    /// The lines of the last `count` slots.
    [[nodiscard]] std::string lastLines(std::size_t count) const;

    [[nodiscard]] Guarded<Recording>::Handle<const Recording> read() const {
        return recording_.lock();
    }

 private:
    void anchor(Recording& recording, std::int64_t notBeforeS) const;

    const Clock& clock_;
    Guarded<Recording> recording_;
};

}  // namespace korvel
