#include "nav/track/TrackRecorder.h"

#include <utility>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "platform/FileIo.h"

namespace korvel {

TrackRecorder::TrackRecorder(const Clock& clock, std::filesystem::path journalFile,
                             FileSystem& disk)
    : clock_(clock),
      disk_(disk),
      journal_(std::move(journalFile), LineJournal::TornLine::Drop, disk) {
    const std::string lines = journal_.completeLines().value_or("");
    if (lines.empty())
        return;
    auto found = std::make_shared<Track>(clock_);
    if (!found->ReadTrackText(lines)) {
        // Not ours to repair, and not ours to throw away.
        journal_.moveTo(journal_.path().string() + ".bad");
        return;
    }
    found->setPendingBreak();
    *track_.lock() = std::move(found);
}

void TrackRecorder::offer(GeoPoint position, std::int32_t groundSpeedKt, std::int32_t trackDeg,
                          std::int32_t altitudeFt) {
    std::string lines;
    {
        const auto track = track_.lock();
        if (!*track)
            *track = std::make_shared<Track>(clock_);
        const std::size_t added =
            (*track)->AddTrackPoint(position, groundSpeedKt, trackDeg, altitudeFt);
        lines = (*track)->lastLines(added);
    }
    if (!lines.empty())
        trouble_.note(journal_.append(lines));
}

void TrackRecorder::breakHere() {
    if (const auto track = track_.lock(); *track)
        (*track)->setPendingBreak();
}

void TrackRecorder::returnToTimeOfDay() {
    if (const auto track = track_.lock(); *track) {
        if (const std::size_t added = (*track)->returnToTimeOfDay(); added != 0)
            journal_.append((*track)->lastLines(added));
    }
}

std::string TrackRecorder::saveTrack(const std::filesystem::path& path) const {
    const std::shared_ptr<const Track> saved = track();
    std::string lines;
    if (!saved || !saved->WriteTrackText(lines))
        return std::string(text(kFlightTexts.noTrackToSave));
    return writeFileAtomically(path, lines, disk_) ? std::string()
                                                   : std::string(text(kFlightTexts.fileOpenError));
}

std::string TrackRecorder::openTrack(const std::filesystem::path& path) {
    const auto bytes = readWholeFile(path, kWholeFile, disk_);
    auto opened = std::make_shared<Track>(clock_);
    if (!bytes || !opened->ReadTrackText(*bytes)) {
        track_.lock()->reset();
        journal_.remove();
        return std::string(text(kFlightTexts.invalidFormat));
    }
    opened->setPendingBreak();
    std::string lines;
    opened->WriteTrackText(lines);
    *track_.lock() = std::move(opened);
    trouble_.note(journal_.replace(lines));
    return {};
}

void TrackRecorder::endSession() {
    const auto& path = journal_.path();
    if (!path.empty())
        journal_.moveTo(path.parent_path() / ("last-" + path.filename().string()));
}

}  // namespace korvel
