#include "nav/track/FlightLog.h"

#include <algorithm>
#include <utility>

#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "config/Settings.h"

namespace korvel {
namespace {

constexpr std::int64_t kSlowMs = 10000;
constexpr std::int64_t kNoteMs = 5000;

std::filesystem::path journalBeside(std::filesystem::path file) { return file += ".flight"; }

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

FlightLog::FlightLog(const Clock& clock, const std::filesystem::path& file, PlaceNamer place)
    : clock_(clock),
      log_(file),
      journal_(file.empty() ? file : journalBeside(file)),
      place_(std::move(place)) {
    complete();
}

/// Moves the last line of the journal to the log, unless the kill came after that had been done.
void FlightLog::complete() {
    std::string_view line;
    const std::string noted = journal_.completeLines();
    if (!noted.empty()) {
        const std::size_t before =
            noted.size() < 3 ? std::string::npos : noted.rfind("\r\n", noted.size() - 3);
        line = std::string_view(noted).substr(before == std::string::npos ? 0 : before + 2);
    }
    if (!line.empty() && !log_.completeLines().ends_with(line)) {
        log_.append(line);
    }
    journal_.remove();
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
    if (!groundSpeedKt) {
        return;
    }
    if (flight_) {
        follow(options, *groundSpeedKt);
    } else if (*groundSpeedKt >= options.startKt) {
        begin(sawSlow_);
    } else {
        sawSlow_ = true;
    }
}

void FlightLog::begin(bool offSeen) {
    const LocalTime now = clock_.localNow();
    const std::string off = offSeen ? timeText(now, false, ":") + ',' + place_() : ",";
    flight_ = Flight{.head = dateText(now) + ',' + off, .startTickMs = clock_.tickMs()};
    note();
}

void FlightLog::follow(const Options& options, double groundSpeedKt) {
    const std::int64_t now = clock_.tickMs();
    if (groundSpeedKt >= options.endKt) {
        flight_->slowSinceMs.reset();
        if (now - flight_->notedMs >= kNoteMs) {
            note();
        }
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
    flight_->line = flight_->head + ',' + timeText(clock_.localNow(), false, ":") + ',' + place_() +
                    ',' + flightTimeText((now - flight_->startTickMs) / 1000) + "\r\n";
    journal_.append(flight_->line);
}

void FlightLog::close() {
    if (!flight_) {
        return;
    }
    if (!flight_->slowSinceMs) {
        note();
    }
    finish();
}

void FlightLog::finish() {
    log_.append(flight_->line);
    journal_.remove();
    flight_.reset();
}

}  // namespace korvel
