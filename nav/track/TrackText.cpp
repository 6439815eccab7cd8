#include "nav/track/TrackText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "geo/Geodesy.h"
#include "platform/FileIo.h"

namespace korvel {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBreakLine = "00000000,000000,0.0,0.0,0,0,0\r\n";
constexpr std::string_view kBreakDate = "00000000";

/// So many lines between two looks at whether somebody still wants the track.
constexpr std::size_t kLinesAtATime = 4096;

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
bool appendParsed(TrackLines& lines, const ParsedLine& parsed, bool& hasBase) {
    if (parsed.isBreak) {
        lines.slots.emplace_back();
        return true;
    }
    if (!std::exchange(hasBase, true))
        lines.baseS = parsed.timeS;
    const std::int64_t offset = parsed.timeS - lines.baseS;
    if (offset < 0 || offset > std::numeric_limits<std::uint32_t>::max())
        return false;
    lines.slots.emplace_back(parsed.point)->offsetS = static_cast<std::uint32_t>(offset);
    return true;
}

std::string_view takeLine(std::string_view& text, bool& ended) {
    const std::size_t end = text.find(kLineEnd);
    ended = end != std::string_view::npos;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(ended ? end + kLineEnd.size() : text.size());
    return line;
}

}  // namespace

std::string trackLine(std::int64_t baseS, const std::optional<TrackPoint>& slot) {
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

TrackLines parseTrackText(std::string_view text, BadLines badLines, const TrackProgress& progress) {
    TrackLines lines;
    bool hasBase = false;
    const auto size = static_cast<double>(text.size());
    for (std::size_t number = 1; !text.empty(); ++number) {
        if (progress && number % kLinesAtATime == 0 &&
            !progress(1 - static_cast<double>(text.size()) / size))
            return {.error = std::string(kTrackBrokenOff)};
        bool ended = false;
        const std::string_view line = takeLine(text, ended);
        if (line.starts_with(';'))
            continue;
        const auto parsed = parseLine(line);
        if (parsed && appendParsed(lines, *parsed, hasBase))
            continue;
        if (!ended && line.find('\n') == std::string_view::npos)
            break;
        if (badLines == BadLines::Refuse)
            return {.error =
                        parsed ? formatText(kFlightTexts.trackRunsBack, {static_cast<int>(number)})
                               : std::string(korvel::text(kFlightTexts.invalidFormat))};
        ++lines.leftOut;
    }
    return lines;
}

TrackLines readTrackFile(const std::filesystem::path& path, const TrackProgress& progress,
                         FileSystem& disk) {
    if (isNoFile(path))
        return {.error = std::string(text(kFlightTexts.noFile))};
    const auto bytes = readWholeFile(path, kWholeFile, disk);
    if (!bytes)
        return {.error = std::string(text(kFlightTexts.fileOpenError))};
    return parseTrackText(*bytes, BadLines::Refuse, progress);
}

}  // namespace korvel
