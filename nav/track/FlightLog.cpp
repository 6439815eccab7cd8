#include "nav/track/FlightLog.h"

#include <algorithm>
#include <utility>

#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "config/Settings.h"
#include "platform/ZoneTime.h"

namespace korvel {
namespace {

constexpr std::int64_t kSlowMs = 10000;
constexpr std::int64_t kNoteMs = 5000;

std::filesystem::path journalBeside(std::filesystem::path file) { return file += ".flight"; }

constexpr std::string_view kFlightEnd = ";\r\n";  ///< in the journal

/// With its CR LF; empty for no line.
std::string_view lastLine(std::string_view lines) {
    const std::size_t before =
        lines.size() < 3 ? std::string_view::npos : lines.rfind("\r\n", lines.size() - 3);
    return lines.substr(before == std::string_view::npos ? 0 : before + 2);
}

/// The last line of each flight in the journal.
std::string flightsIn(std::string_view journal) {
    std::string lines;
    while (!journal.empty()) {
        const std::size_t end = std::min(journal.find(kFlightEnd), journal.size());
        lines += lastLine(journal.substr(0, end));
        journal.remove_prefix(std::min(end + kFlightEnd.size(), journal.size()));
    }
    return lines;
}

}  // namespace

std::string flightTimeText(std::int64_t seconds) {
    const std::int64_t minutes = (seconds + 59) / 60;
    const std::int64_t tenths = (minutes + 5) / 6;
    return formatInt(minutes) + ',' + formatFixed(static_cast<double>(tenths) * 0.1, 1);
}

FlightLog::Options FlightLog::Options::from(const Settings& settings) {
    const double approachKt = settings.approachSpeedKt;
    const double startKt = settings.logStartKt < 0 ? approachKt : settings.logStartKt;
    const double endKt = settings.logEndKt < 0 ? approachKt / 2 : settings.logEndKt;
    // An end above the start would end each flight as it begins.
    return {
        .enabled = settings.logEnable != 0, .startKt = startKt, .endKt = std::min(endKt, startKt)};
}

FlightLog::FlightLog(const Clock& clock, const std::filesystem::path& file, PlaceNamer place,
                     FileSystem& disk)
    : clock_(clock),
      log_(file, LineJournal::TornLine::End, disk),
      journal_(file.empty() ? file : journalBeside(file), LineJournal::TornLine::Drop, disk),
      place_(std::move(place)) {
    complete();
}

/// Moves what the journal holds to the log, unless the kill came after that had been done. What
/// cannot be read now may be at the next start.
void FlightLog::complete() {
    const auto noted = journal_.completeLines();
    const auto logged = log_.completeLines();
    if (!noted || !logged)
        return;
    const std::string lines = flightsIn(*noted);
    addToLog(logged->ends_with(lines) ? std::string_view() : lines);
}

void FlightLog::addToLog(std::string_view lines) {
    unwritten_ += lines;
    std::string trouble = log_.append(unwritten_);
    if (trouble.empty()) {
        unwritten_.clear();
        journal_.remove();
    } else {
        noteTrouble_.note(journal_.append(kFlightEnd));
    }
    logTrouble_.note(std::move(trouble));
}

std::string FlightLog::takeTrouble() {
    std::string trouble = logTrouble_.take();
    return trouble.empty() ? noteTrouble_.take() : trouble;
}

std::optional<std::int64_t> FlightLog::flightTimeSec() const {
    constexpr std::int64_t kMsPerSecond = 1000;
    return flight_ ? std::optional((clock_.tickMs() - flight_->startTickMs) / kMsPerSecond)
                   : std::nullopt;
}

void FlightLog::step(const Options& options, std::optional<double> groundSpeedKt) {
    if (!options.enabled) {
        close();
        sawSlow_ = false;
        return;
    }
    if (!groundSpeedKt)
        return;
    if (flight_)
        follow(options, *groundSpeedKt);
    else if (*groundSpeedKt >= options.startKt)
        begin(sawSlow_);
    else
        sawSlow_ = true;
}

void FlightLog::begin(bool offSeen) {
    const LocalTime now = clock_.localNow();
    const std::string off = offSeen ? timeText(now, false, ":") + ',' + place_() : ",";
    flight_ = Flight{.head = dateText(now) + ',' + off,
                     .startTickMs = clock_.tickMs(),
                     .startUnixSeconds = clock_.unixSeconds()};
    note();
}

void FlightLog::follow(const Options& options, double groundSpeedKt) {
    const std::int64_t now = clock_.tickMs();
    if (groundSpeedKt >= options.endKt) {
        flight_->slowSinceMs.reset();
        if (now - flight_->notedMs >= kNoteMs)
            note();
    } else if (!flight_->slowSinceMs) {
        note();
        flight_->slowSinceMs = now;
    } else if (now - *flight_->slowSinceMs >= kSlowMs) {
        finish();
        sawSlow_ = true;
    }
}

void FlightLog::note() {
    const std::int64_t now = clock_.tickMs();
    flight_->notedMs = now;
    const std::int64_t seconds = (now - flight_->startTickMs) / 1000;
    const LocalTime on = localTimeOf(clock_, flight_->startUnixSeconds + seconds);
    flight_->line = flight_->head + ',' + timeText(on, false, ":") + ',' + place_() + ',' +
                    flightTimeText(seconds) + "\r\n";
    noteTrouble_.note(journal_.append(flight_->line));
}

void FlightLog::close() {
    if (!flight_)
        return;
    if (!flight_->slowSinceMs)
        note();
    finish();
}

void FlightLog::finish() {
    addToLog(flight_->line);
    flight_.reset();
}

}  // namespace korvel
