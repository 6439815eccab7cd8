#include "exchange/formats/Igc.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include "base/Ascii.h"
#include "base/Calendar.h"
#include "base/TextLines.h"
#include "config/Text.h"
#include "config/texts/ExchangeTexts.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {
namespace {

constexpr std::int64_t kDayS = 86400;
/// Recorders may put a fix out of its order by seconds; what goes back farther is another day.
constexpr int kHourS = 3600;

/// A whole number of digits alone, with a sign in front at most.
std::optional<int> digits(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative)
        text.remove_prefix(1);
    if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    int value = 0;
    for (const char c : text)
        value = value * 10 + (c - '0');
    return isNegative ? -value : value;
}

/// "5107126N" and "00149300W": degrees and thousandths of minutes.
std::optional<double> packed(std::string_view text, std::size_t degreeDigits,
                             std::string_view letters) {
    const auto degrees = digits(text.substr(0, degreeDigits));
    const auto minutes = digits(text.substr(degreeDigits, 5));
    if (!degrees || !minutes || *minutes >= 60000 ||
        letters.find(text.back()) == std::string_view::npos)
        return std::nullopt;
    const double value = *degrees + *minutes / 60000.0;
    return text.back() == letters.front() ? value : -value;
}

/// The day of "HFDTE160701" or "HFDTEDATE:160701,01", as seconds since 1970.
std::optional<std::int64_t> dayOf(std::string_view line) {
    const std::size_t at = line.find_first_of("0123456789");
    if (at == std::string_view::npos || line.size() < at + 6)
        return std::nullopt;
    const auto day = digits(line.substr(at, 2));
    const auto month = digits(line.substr(at + 2, 2));
    const auto year = digits(line.substr(at + 4, 2));
    if (!day || !month || !year)
        return std::nullopt;
    const LocalTime date{
        .year = *year >= 80 ? 1900 + *year : 2000 + *year, .month = *month, .day = *day};
    return isCalendarTime(date) ? std::optional(localSeconds(date)) : std::nullopt;
}

struct Fix {
    int timeOfDayS = 0;
    ForeignTrackPoint point;
};

std::optional<Fix> fixOf(std::string_view line) {
    constexpr std::size_t kShortest = 35;
    if (line.size() < kShortest)
        return std::nullopt;
    const auto hour = digits(line.substr(1, 2));
    const auto minute = digits(line.substr(3, 2));
    const auto second = digits(line.substr(5, 2));
    const auto lat = packed(line.substr(7, 8), 2, "NS");
    const auto lon = packed(line.substr(15, 9), 3, "EW");
    const auto pressureM = digits(line.substr(25, 5));
    const auto gpsM = digits(line.substr(30, 5));
    if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59 || !lat || !lon ||
        std::abs(*lat) > 90.0 || std::abs(*lon) > 180.0)
        return std::nullopt;
    // Recorders without a height of the receiver write 0 there.
    const int metres = gpsM && *gpsM != 0 ? *gpsM : pressureM.value_or(0);
    return Fix{*hour * 3600 + *minute * 60 + *second,
               {.position = {.lat = *lat * kDegToRad, .lon = *lon * kDegToRad},
                .altitudeFt = metres * kFeetPerMetre}};
}

std::string packedText(double radians, std::size_t degreeDigits, std::string_view letters) {
    const long long thousandths = std::llround(std::abs(radians) * kRadToDeg * 60000.0);
    return zeroPadded(thousandths / 60000, degreeDigits) + zeroPadded(thousandths % 60000, 5) +
           letters[radians < 0 ? 1 : 0];
}

std::string heightText(double feet) {
    const int metres = std::clamp(RoundToInt(feet / kFeetPerMetre), -9999, 99999);
    return metres < 0 ? "-" + zeroPadded(-metres, 4) : zeroPadded(metres, 5);
}

}  // namespace

bool isIgc(const Source& source) {
    TextLines lines(source.text());
    std::string_view line;
    if (!lines.next(line) || !line.starts_with('A'))
        return false;
    for (int i = 0; i < 100 && lines.next(line); ++i)
        if (line.starts_with("HFDTE") || line.starts_with("HODTE"))
            return true;
    return false;
}

ForeignTrack readIgc(const Source& source) {
    ForeignTrack track;
    TextLines lines(source.text());
    std::optional<std::int64_t> day;
    int lastS = 0;
    for (std::string_view line; lines.next(line);) {
        if (line.starts_with("HFDTE") || line.starts_with("HODTE")) {
            day = dayOf(line);
            lastS = 0;
        }
        if (!line.starts_with('B'))
            continue;
        auto fix = fixOf(line);
        if (!fix) {
            track.error = text(kExchangeTexts.badCoordinate);
            return track;
        }
        if (track.points.size() >= kMostForeignPoints) {
            track.error = text(kExchangeTexts.tooManyPoints);
            return track;
        }
        if (day && fix->timeOfDayS + kHourS < lastS)
            *day += kDayS;  // past midnight
        lastS = fix->timeOfDayS;
        if (day)
            fix->point.unixS = *day + fix->timeOfDayS;
        track.points.emplace_back(fix->point);
    }
    return track;
}

std::string igcOfTrack(std::span<const std::optional<ForeignTrackPoint>> points) {
    const auto first =
        std::ranges::find_if(points, [](const auto& point) { return point && point->unixS; });
    std::string text = "AXXXKorvel Pro\r\n";
    if (first == points.end())
        return text;
    const LocalTime date = localTimeAt(*(*first)->unixS);
    text += "HFDTE" + zeroPadded(date.day, 2) + zeroPadded(date.month, 2) +
            zeroPadded(date.year % 100, 2) + "\r\nHFDTM100GPSDATUM:WGS-1984\r\n";
    for (const auto& point : points) {
        if (!point || !point->unixS)
            continue;
        text += 'B' + timeText(localTimeAt(*point->unixS), true, "") +
                packedText(point->position.lat, 2, "NS") +
                packedText(point->position.lon, 3, "EW") + "A00000" +
                heightText(point->altitudeFt) + "\r\n";
    }
    return text;
}

}  // namespace korvel
