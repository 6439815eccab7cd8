#include "ground/airspace/OpenAirValues.h"

#include <array>
#include <cmath>

#include "base/Ascii.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kRemarks = "*;";
constexpr double kFeetPerLevel = 100;
/// More is a slip of the pen.
constexpr double kHighestLimitFt = 999999;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool takeLetter(std::string_view& text, char capital) {
    const std::string_view rest = trimmedLeft(text, kBlanks);
    if (rest.empty() || upperAscii(rest.front()) != capital)
        return false;
    text = rest.substr(1);
    return true;
}

/// One coordinate with its letter, degrees; `positive` and `negative` are the letters.
std::optional<double> takeCoordinate(std::string_view& text, char positive, char negative,
                                     double limit) {
    text = trimmedLeft(text, kBlanks);
    double degrees = 0;
    double part = 1;
    for (int i = 0; i < 3; ++i) {
        if (i > 0 && (text.empty() || text.front() != ':'))
            break;
        if (i > 0)
            text.remove_prefix(1);
        const auto number = takeNumber(text);
        if (!number || (i > 0 && *number > 60))
            return std::nullopt;
        degrees += *number / part;
        part *= 60;
    }
    if (degrees > limit)
        return std::nullopt;
    if (takeLetter(text, positive))
        return degrees;
    if (takeLetter(text, negative))
        return -degrees;
    return std::nullopt;
}

/// Takes a word off the front, in whatever letters.
bool takeWord(std::string_view& text, std::string_view word) {
    if (!startsWithIgnoringCase(text, word))
        return false;
    text = trimmedLeft(text.substr(word.size()), kBlanks);
    return true;
}

bool isSurface(std::string_view text) {
    return equalsIgnoringCase(text, "SFC") || equalsIgnoringCase(text, "GND") ||
           equalsIgnoringCase(text, "SURFACE") || equalsIgnoringCase(text, "GROUND");
}

/// Feet, unless the text goes on with metres; what is an M may begin "MSL".
double takeUnit(std::string_view& text) {
    for (const std::string_view feet : {"FEET", "FT", "F"})
        if (takeWord(text, feet))
            return 1;
    if (!startsWithIgnoringCase(text, "MSL") && takeWord(text, "M"))
        return kFeetPerMetre;
    return 1;
}

std::optional<LimitReference> referenceOf(std::string_view word) {
    struct Row {
        std::string_view word;
        LimitReference reference;
    };
    constexpr std::array kRows{
        Row{"", LimitReference::Msl},           Row{"MSL", LimitReference::Msl},
        Row{"AMSL", LimitReference::Msl},       Row{"ALT", LimitReference::Msl},
        Row{"AGL", LimitReference::Agl},        Row{"GND", LimitReference::Agl},
        Row{"SFC", LimitReference::Agl},        Row{"ASFC", LimitReference::Agl},
        Row{"STD", LimitReference::FlightLevel}};
    for (const Row& row : kRows)
        if (equalsIgnoringCase(word, row.word))
            return row.reference;
    return std::nullopt;
}

/// The number and what it counts from; false where the text is something else.
bool parseNumber(std::string_view text, AltitudeLimit& limit) {
    double factor = 1;
    std::optional<LimitReference> reference;
    if (takeWord(text, "FL")) {
        factor = kFeetPerLevel;
        reference = LimitReference::FlightLevel;
    }
    const auto number = takeNumber(text);
    if (!number)
        return false;
    text = trimmedLeft(text, kBlanks);
    if (!reference) {
        factor = takeUnit(text);
        reference = referenceOf(text);
    } else if (!text.empty()) {
        return false;
    }
    const double feet = *number * factor;
    if (!reference || feet > kHighestLimitFt)
        return false;
    limit.ft = RoundToInt(feet);
    limit.reference = *reference;
    return true;
}

}  // namespace

std::optional<double> takeNumber(std::string_view& text) {
    std::string_view rest = trimmedLeft(text, kBlanks);
    double value = 0;
    double scale = 1;
    std::size_t digits = 0;
    bool point = false;
    for (; !rest.empty() && (isDigit(rest.front()) || (rest.front() == '.' && !point));
         rest.remove_prefix(1)) {
        if (rest.front() == '.') {
            point = true;
            continue;
        }
        ++digits;
        value = value * 10 + (rest.front() - '0');
        scale *= point ? 10 : 1;
    }
    if (digits == 0 || !std::isfinite(value) || !std::isfinite(scale))
        return std::nullopt;
    text = rest;
    return value / scale;
}

std::optional<GeoPoint> takePosition(std::string_view& text) {
    std::string_view rest = text;
    const auto lat = takeCoordinate(rest, 'N', 'S', 90);
    if (!lat)
        return std::nullopt;
    rest = trimmedLeft(rest, " \t,");
    const auto lon = takeCoordinate(rest, 'E', 'W', 180);
    if (!lon)
        return std::nullopt;
    text = rest;
    return GeoPoint{*lat * kDegToRad, *lon * kDegToRad};
}

bool isRestEmpty(std::string_view text) {
    const std::string_view rest = trimmed(text, kBlanks);
    return rest.empty() || kRemarks.find(rest.front()) != std::string_view::npos;
}

AltitudeLimit parseLimit(std::string_view text) {
    const std::string_view words = trimmed(text.substr(0, text.find_first_of(kRemarks)), kBlanks);
    AltitudeLimit limit{.text = std::string(words), .ft = {}};
    if (isSurface(words)) {
        limit.ft = 0;
        limit.reference = LimitReference::Agl;
    } else if (startsWithIgnoringCase(words, "UNL")) {
        limit.reference = LimitReference::Unlimited;
    } else {
        parseNumber(words, limit);
    }
    return limit;
}

}  // namespace korvel
