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
/// that was killed finds its track again. What is recorded is never written over: where another
/// track takes its place, and at the end of a run, the journal becomes "last-" with its name, and
/// those before it "last-2-" to "last-5-".
///
/// Main thread only, but for track(). Locks: the pointer to the track has one, the track itself
/// another; taken in this order, and no file is written under either.
class TrackRecorder {
 public:
    /// Takes up the track of a journal that an earlier run left behind, if there is one; what is
    /// recorded from now on is set off from it by a break. Lines that make no sense are left out,
    /// told, and kept in a copy. Without a path nothing is kept. `clock` and `disk` must outlive
    /// this.
    explicit TrackRecorder(const Clock& clock, std::filesystem::path journalFile = {},
                           FileSystem& disk = systemFileSystem());

    void offer(GeoPoint position, std::int32_t groundSpeedKt, std::int32_t trackDeg,
               std::int32_t altitudeFt);
    /// The next point is not joined to the last one.
    void breakHere();
    /// The next point is not joined to the last one either, and has the time of day, from which the
    /// ticks have run away.
    void returnToTimeOfDay();

    // All of these return the message for the pilot, empty on success; one that fails changes
    // nothing.

    [[nodiscard]] std::string saveTrack(const std::filesystem::path& path);
    [[nodiscard]] std::string openTrack(const std::filesystem::path& path);
    /// Shows what was read from a file in the place of the track there is. What is recorded from
    /// now on goes behind it, but to a journal of its own.
    [[nodiscard]] std::string show(TrackLines lines);

    /// There are recorded points that no file of the pilot's holds.
    [[nodiscard]] bool isUnsaved() const { return isUnsaved_; }

    /// Orderly end of the program: the journal is set aside, and the next run begins without a
    /// track.
    void endSession() { setAside(); }

    /// What became of the journal, or why the track is not kept in it, told once for as long as it
    /// lasts; empty for nothing to tell.
    [[nodiscard]] std::string takeTrouble();
    /// Why the track is not kept, for as long as that lasts.
    [[nodiscard]] const std::string& trouble() const { return trouble_.lasting(); }

    /// Null when there is none. It stays alive while the caller holds it.
    [[nodiscard]] std::shared_ptr<const Track> track() const { return *track_.lock(); }

 private:
    void takeUp(std::string_view journal);
    bool setAside();
    [[nodiscard]] std::filesystem::path lastName(int age) const;

    const Clock& clock_;
    FileSystem& disk_;
    Guarded<std::shared_ptr<Track>> track_;
    LineJournal journal_;
    ToldOnce trouble_;
    std::string news_;  ///< of the journal, untold
    bool isUnsaved_ = false;
};

}  // namespace korvel
