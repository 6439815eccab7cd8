#include "nav/track/TrackRecorder.h"

#include <utility>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "platform/FileIo.h"

namespace korvel {

TrackRecorder::TrackRecorder(const Clock& clock, std::filesystem::path journalFile)
    : clock_(clock), journal_(std::move(journalFile)) {
    const std::string lines = journal_.completeLines();
    if (lines.empty()) {
        return;
    }
    auto found = std::make_shared<Track>(clock_);
    if (!found->ReadTrackText(lines)) {
        // Not ours to repair, and not ours to throw away.
        journal_.moveTo(journal_.path().string() + ".bad");
        return;
    }
    found->setPendingBreak();
    journal_.replace(lines);  // without a torn last line, which the next one would be joined to
    *track_.lock() = std::move(found);
}

void TrackRecorder::offer(GeoPoint position, std::int32_t groundSpeedKt, std::int32_t trackDeg,
                          std::int32_t altitudeFt) {
    const auto track = track_.lock();
    if (!*track) {
        *track = std::make_shared<Track>(clock_);
    }
    const std::size_t added =
        (*track)->AddTrackPoint(position, groundSpeedKt, trackDeg, altitudeFt);
    if (added != 0) {
        journal_.append((*track)->lastLines(added));
    }
}

void TrackRecorder::breakHere() {
    if (const auto track = track_.lock(); *track) {
        (*track)->setPendingBreak();
    }
}

void TrackRecorder::returnToTimeOfDay() {
    if (const auto track = track_.lock(); *track) {
        if (const std::size_t added = (*track)->returnToTimeOfDay(); added != 0) {
            journal_.append((*track)->lastLines(added));
        }
    }
}

std::string TrackRecorder::saveTrack(const std::filesystem::path& path) const {
    const std::shared_ptr<const Track> saved = track();
    std::string lines;
    if (!saved || !saved->WriteTrackText(lines)) {
        return std::string(text(kFlightTexts.noTrackToSave));
    }
    return writeFileAtomically(path, lines) ? std::string()
                                            : std::string(text(kFlightTexts.fileOpenError));
}

std::string TrackRecorder::openTrack(const std::filesystem::path& path) {
    const auto bytes = readWholeFile(path);
    const auto track = track_.lock();
    *track = std::make_shared<Track>(clock_);
    if (!bytes || !(*track)->ReadTrackText(*bytes)) {
        track->reset();
        journal_.remove();
        return std::string(text(kFlightTexts.invalidFormat));
    }
    (*track)->setPendingBreak();
    std::string lines;
    (*track)->WriteTrackText(lines);
    journal_.replace(lines);
    return {};
}

void TrackRecorder::endSession() {
    const auto& path = journal_.path();
    if (!path.empty()) {
        journal_.moveTo(path.parent_path() / ("last-" + path.filename().string()));
    }
}

}  // namespace korvel
