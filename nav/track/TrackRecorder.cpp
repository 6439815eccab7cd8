#include "nav/track/TrackRecorder.h"

#include <utility>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr int kKeptJournals = 5;

}  // namespace

TrackRecorder::TrackRecorder(const Clock& clock, std::filesystem::path journalFile,
                             FileSystem& disk)
    : clock_(clock),
      disk_(disk),
      journal_(std::move(journalFile), LineJournal::TornLine::Drop, disk) {
    if (const auto lines = journal_.completeLines(); lines && !lines->empty())
        takeUp(*lines);
}

void TrackRecorder::takeUp(std::string_view journal) {
    TrackLines lines = parseTrackText(journal, BadLines::LeaveOut);
    const std::size_t leftOut = lines.leftOut;
    std::filesystem::path copy = journal_.path();
    copy += ".bad";
    if (lines.slots.empty()) {
        // Not ours to repair, and not ours to throw away.
        journal_.moveTo(copy);
        return;
    }
    auto found = std::make_shared<Track>(clock_);
    found->take(std::move(lines));
    if (!found->canGoOn()) {
        journal_.moveTo(copy);
        return;
    }
    found->setPendingBreak();
    isUnsaved_ = true;
    if (leftOut != 0) {
        news_ = formatText(kFlightTexts.trackLinesLost, {static_cast<int>(leftOut)});
        std::string whole;
        found->WriteTrackText(whole);
        if (writeFileAtomically(copy, journal, disk_))
            trouble_.note(journal_.replace(whole));
    }
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
    if (lines.empty())
        return;
    isUnsaved_ = true;
    trouble_.note(journal_.append(lines));
}

void TrackRecorder::breakHere() {
    if (const auto track = track_.lock(); *track)
        (*track)->setPendingBreak();
}

void TrackRecorder::returnToTimeOfDay() {
    std::string lines;
    if (const auto track = track_.lock(); *track)
        lines = (*track)->lastLines((*track)->returnToTimeOfDay());
    if (!lines.empty())
        trouble_.note(journal_.append(lines));
}

std::string TrackRecorder::takeTrouble() {
    return news_.empty() ? trouble_.take() : std::exchange(news_, {});
}

std::string TrackRecorder::saveTrack(const std::filesystem::path& path) {
    const std::shared_ptr<const Track> saved = track();
    std::string lines;
    if (!saved || !saved->WriteTrackText(lines))
        return std::string(text(kFlightTexts.noTrackToSave));
    if (!writeFileAtomically(path, lines, disk_))
        return std::string(text(kFlightTexts.fileOpenError));
    isUnsaved_ = false;
    return {};
}

std::string TrackRecorder::openTrack(const std::filesystem::path& path) {
    TrackLines lines = readTrackFile(path, {}, disk_);
    return lines.error.empty() ? show(std::move(lines)) : lines.error;
}

std::string TrackRecorder::show(TrackLines lines) {
    auto opened = std::make_shared<Track>(clock_);
    opened->take(std::move(lines));
    opened->setPendingBreak();
    // Nothing could be recorded behind it.
    if (!opened->canGoOn())
        return std::string(text(kFlightTexts.trackFromElsewhen));
    if (!setAside())
        return formatText(kFlightTexts.fileNotWritten, {textOf(lastName(1).filename())});
    *track_.lock() = std::move(opened);
    isUnsaved_ = false;
    return {};
}

std::filesystem::path TrackRecorder::lastName(int age) const {
    const auto& path = journal_.path();
    const std::string number = age == 1 ? "" : std::to_string(age) + '-';
    return path.parent_path() / pathOf("last-" + number + textOf(path.filename()));
}

/// False when the journal is still in its place; then nothing of it or of an older one is lost.
bool TrackRecorder::setAside() {
    if (!journal_.exists())
        return true;
    for (int age = kKeptJournals - 1; age >= 1; --age)
        if (disk_.exists(lastName(age)) && !disk_.rename(lastName(age), lastName(age + 1)))
            return false;
    return journal_.moveTo(lastName(1));
}

}  // namespace korvel
