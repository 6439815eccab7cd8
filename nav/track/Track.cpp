#include "nav/track/Track.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "base/Calendar.h"
#include "base/TextNumbers.h"

namespace korvel {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBreakLine = "00000000,000000,0.0,0.0,0,0,0\r\n";
constexpr std::string_view kBreakDate = "00000000";

std::string slotLine(std::int64_t baseS, const std::optional<TrackPoint>& slot) {
    if (!slot)
        return std::string(kBreakLine);
    const LocalTime time = localTimeAt(baseS + slot->offsetS);
    std::string line = dateText(time) + ',' + timeText(time, true, "");
    for (const double radians : {slot->position.lat, slot->position.lon})
        line += ',' + formatFixed(radians * kRadToDeg, 6);
    for (const std::int32_t number : {slot->groundSpeedKt, slot->trackDeg, slot->altitudeFt})
        line += ',' + formatInt(number);
    return line.append(kLineEnd);
}

/// What stands before the next comma, which is taken too; nothing when either is missing.
std::optional<std::string_view> takeField(std::string_view& line) {
    const std::size_t comma = line.find(',');
    if (comma == 0 || comma == std::string_view::npos)
        return std::nullopt;
    const std::string_view field = line.substr(0, comma);
    line.remove_prefix(comma + 1);
    return field;
}

bool takeComma(std::string_view& line) {
    if (!line.starts_with(','))
        return false;
    line.remove_prefix(1);
    return true;
}

struct ParsedLine {
    bool isBreak = false;
    std::int64_t timeS = 0;
    TrackPoint point{};
};

std::optional<std::int64_t> parseTime(std::string_view date, std::string_view time) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (!std::ranges::all_of(date, isDigit) || !std::ranges::all_of(time, isDigit))
        return std::nullopt;
    const LocalTime local{.year = ParseInt(date.substr(0, 4)),
                          .month = ParseInt(date.substr(4, 2)),
                          .day = ParseInt(date.substr(6, 2)),
                          .hour = ParseInt(time.substr(0, 2)),
                          .minute = ParseInt(time.substr(2, 2)),
                          .second = ParseInt(time.substr(4, 2))};
    return isCalendarTime(local) ? std::optional(localSeconds(local)) : std::nullopt;
}

/// Nothing unless all seven fields are there and in range.
std::optional<ParsedLine> parseLine(std::string_view line) {
    const auto date = takeField(line);
    const auto time = date ? takeField(line) : std::nullopt;
    if (!time || date->size() != 8 || time->size() != 6)
        return std::nullopt;
    const auto lat = scanDouble(line);
    const auto lon = lat && takeComma(line) ? scanDouble(line) : std::nullopt;
    if (!lon || !(std::abs(*lat) <= 90.0) || !(std::abs(*lon) <= 180.0))
        return std::nullopt;
    ParsedLine parsed{.point = {.position = {*lat * kDegToRad, *lon * kDegToRad}}};
    for (std::int32_t* const number :
         {&parsed.point.groundSpeedKt, &parsed.point.trackDeg, &parsed.point.altitudeFt}) {
        const auto value = takeComma(line) ? scanInt(line) : std::nullopt;
        if (!value)
            return std::nullopt;
        *number = *value;
    }
    if (*date == kBreakDate)
        return ParsedLine{.isBreak = true};
    const auto seconds = parseTime(*date, *time);
    // A line feed alone does not end a line: behind it more lines would be lost unseen.
    if (!seconds || line.find('\n') != std::string_view::npos)
        return std::nullopt;
    parsed.timeS = *seconds;
    return parsed;
}

/// False for a point whose time does not fit behind the base time.
bool appendParsed(Track::Recording& recording, const ParsedLine& parsed, bool& hasBase) {
    if (parsed.isBreak) {
        recording.slots.emplace_back();
        return true;
    }
    if (!std::exchange(hasBase, true))
        recording.baseS = parsed.timeS;
    const std::int64_t offset = parsed.timeS - recording.baseS;
    if (offset < 0 || offset > std::numeric_limits<std::uint32_t>::max())
        return false;
    recording.slots.emplace_back(parsed.point)->offsetS = static_cast<std::uint32_t>(offset);
    return true;
}

bool parseText(std::string_view text, Track::Recording& recording) {
    bool hasBase = false;
    while (!text.empty()) {
        const std::size_t end = text.find(kLineEnd);
        const bool ended = end != std::string_view::npos;
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(ended ? end + kLineEnd.size() : text.size());
        if (line.starts_with(';'))
            continue;
        const auto parsed = parseLine(line);
        if (!parsed || !appendParsed(recording, *parsed, hasBase))
            return !ended && line.find('\n') == std::string_view::npos;
    }
    return true;
}

}  // namespace

void Track::anchor(Recording& recording, std::int64_t notBeforeS) const {
    recording.anchorS_ = std::max(localSeconds(clock_.localNow()), notBeforeS);
    recording.anchorTickMs_ = clock_.tickMs();
}

void Track::setPendingBreak() {
    const auto recording = recording_.lock();
    // Behind a break there is nothing to join.
    recording->breakPending_ = recording->slots.empty() || recording->slots.back().has_value();
}

std::size_t Track::returnToTimeOfDay() {
    const auto recording = recording_.lock();
    auto& slots = recording->slots;
    recording->breakPending_ = false;
    anchor(*recording, recording->baseS);
    if (slots.empty() || !slots.back().has_value())
        return 0;
    slots.emplace_back();
    return 1;
}

std::size_t Track::AddTrackPoint(GeoPoint position, std::int32_t groundSpeedKt,
                                 std::int32_t trackDeg, std::int32_t altitudeFt) {
    if (!IsValid(position))
        return 0;
    const auto recording = recording_.lock();
    auto& slots = recording->slots;
    if (slots.empty()) {
        anchor(*recording, std::numeric_limits<std::int64_t>::min());
        recording->baseS = recording->anchorS_;
    }
    const std::int64_t elapsedS = recording->anchorS_ - recording->baseS +
                                  (clock_.tickMs() - recording->anchorTickMs_) / 1000;
    const bool lastIsPoint = !slots.empty() && slots.back().has_value();
    if (lastIsPoint && (SamePoint(slots.back()->position, position) ||
                        elapsedS < std::int64_t{slots.back()->offsetS} + kMinimumIntervalS))
        return 0;
    if (elapsedS < 0 || elapsedS > std::numeric_limits<std::uint32_t>::max())
        return 0;
    const bool withBreak = recording->breakPending_ && lastIsPoint;
    if (withBreak) {
        slots.emplace_back();
        recording->breakPending_ = false;
    }
    slots.emplace_back(TrackPoint{.offsetS = static_cast<std::uint32_t>(elapsedS),
                                  .position = position,
                                  .groundSpeedKt = groundSpeedKt,
                                  .trackDeg = trackDeg,
                                  .altitudeFt = altitudeFt});
    return withBreak ? 2 : 1;
}

bool Track::WriteTrackText(std::string& text) const {
    const auto recording = recording_.lock();
    text.clear();
    for (const auto& slot : recording->slots)
        text += slotLine(recording->baseS, slot);
    return true;
}

std::string Track::lastLines(std::size_t count) const {
    const auto recording = recording_.lock();
    const auto& slots = recording->slots;
    std::string lines;
    for (std::size_t i = slots.size() - std::min(count, slots.size()); i < slots.size(); ++i)
        lines += slotLine(recording->baseS, slots[i]);
    return lines;
}

bool Track::ReadTrackText(std::string_view text) {
    const auto recording = recording_.lock();
    *recording = {};
    const bool read = parseText(text, *recording);
    if (!read)
        *recording = {};
    // Recording goes on behind the last point even where the wall clock is behind the file's.
    std::int64_t lastS = recording->baseS;
    for (const auto& slot : recording->slots)
        lastS = slot ? std::max(lastS, recording->baseS + slot->offsetS) : lastS;
    anchor(*recording, lastS);
    return read;
}

}  // namespace korvel
