#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "base/Guarded.h"
#include "base/ToldOnce.h"
#include "nav/track/LineJournal.h"
#include "nav/track/Track.h"

namespace korvel {

/// Owns the one track there is and what the pilot does with it. The track is created when the first
/// point is offered. While it is recorded, every line also goes to a journal, so that a program
/// that was killed finds its track again.
///
/// Main thread only, but for track() and saveTrack(). Locks: the pointer to the track has one, the
/// track itself another; taken in this order, and no file is written under either.
class TrackRecorder {
 public:
    /// Takes up the track of a journal that an earlier run left behind, if there is one; what is
    /// recorded from now on is set off from it by a break. Without a path nothing is kept.
    /// `clock` and `disk` must outlive this.
    explicit TrackRecorder(const Clock& clock, std::filesystem::path journalFile = {},
                           FileSystem& disk = systemFileSystem());

    void offer(GeoPoint position, std::int32_t groundSpeedKt, std::int32_t trackDeg,
               std::int32_t altitudeFt);
    /// The next point is not joined to the last one.
    void breakHere();
    /// The next point is not joined to the last one either, and has the time of day, from which the
    /// ticks have run away.
    void returnToTimeOfDay();

    /// Both return the message for the pilot, empty on success. A file that is not a track leaves
    /// no track at all.
    [[nodiscard]] std::string saveTrack(const std::filesystem::path& path) const;
    [[nodiscard]] std::string openTrack(const std::filesystem::path& path);

    /// Orderly end of the program: the journal becomes "last-" with its name, and the next run
    /// begins without a track.
    void endSession();

    /// Why the track is not kept in the journal, told once for as long as it lasts; empty for
    /// nothing to tell.
    [[nodiscard]] std::string takeTrouble() { return trouble_.take(); }

    /// Null when there is none. It stays alive while the caller holds it.
    [[nodiscard]] std::shared_ptr<const Track> track() const { return *track_.lock(); }

 private:
    const Clock& clock_;
    FileSystem& disk_;
    Guarded<std::shared_ptr<Track>> track_;
    LineJournal journal_;
    ToldOnce trouble_;
};

}  // namespace korvel
