#include "nav/plan/RouteWords.h"

#include <algorithm>
#include <cmath>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "geo/Geodesy.h"

namespace korvel {

std::string_view stripped(std::string_view text) {
    constexpr std::string_view kBlank = " \t\r\n\v\f";
    const std::size_t first = std::min(text.find_first_not_of(kBlank), text.size());
    return text.substr(first, text.find_last_not_of(kBlank) + 1 - first);
}

std::vector<std::string> SplitWords(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(" \n"), text.size());
        std::string word(text.substr(0, end));
        std::erase(word, '\r');
        if (const std::string_view kept = stripped(word); !kept.empty())
            words.emplace_back(kept);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

std::string typedIdents(std::string_view text) {
    std::string idents(text);
    bool begins = true;
    for (std::size_t i = 0; i < idents.size(); ++i) {
        char& letter = idents[i];
        const bool isKind = begins && i + 1 < idents.size() && idents[i + 1] == '.';
        begins = letter == ' ' || letter == '@';
        letter = isKind ? lowerAscii(letter) : upperAscii(letter);
    }
    return idents;
}

std::optional<std::int32_t> scanPlannedAltitude(std::string_view& text) {
    const auto hundreds = scanDouble(text);
    const double feet = hundreds.value_or(0.0) * 100.0;
    if (!hundreds || !(feet >= kLowestPlannedFt && feet <= kHighestPlannedFt))
        return std::nullopt;
    return static_cast<std::int32_t>(feet);
}

std::optional<std::int32_t> typedAltitude(std::string_view text) {
    std::string_view rest = stripped(text);
    if (rest.empty())
        return kNoAltitudeFt;
    const auto planned = scanPlannedAltitude(rest);
    return rest.empty() ? planned : std::nullopt;
}

std::string altitudeSuffix(std::int32_t altitudeFt) {
    if (altitudeFt == kNoAltitudeFt)
        return {};
    return '@' + formatFixed(altitudeFt * 0.01, altitudeFt % 100 == 0 ? 0 : 1);
}

std::string positionText(GeoPoint position) {
    return formatFixed(position.lat * kRadToDeg, 6) + ' ' +
           formatFixed(position.lon * kRadToDeg, 6);
}

GeoPoint parsePositionText(std::string_view text) {
    const auto lat = scanDouble(text);
    const auto lon = lat ? scanDouble(text) : std::nullopt;
    if (!lon || !(std::abs(*lat) <= 90.0) || !(std::abs(*lon) <= 180.0))
        return {};
    return {*lat * kDegToRad, *lon * kDegToRad};
}

RouteWord RouteWord::parse(std::string_view word) {
    if (word.starts_with('@'))
        return {.ident = word.substr(1), .isAirway = true};
    const std::size_t at = word.find('@');
    RouteWord parsed{.ident = word.substr(0, at)};
    if (at != std::string_view::npos) {
        std::string_view rest = word.substr(at + 1);
        const auto altitude = scanPlannedAltitude(rest);
        // "45x" is a slip of the finger, not 4500 ft.
        parsed.unreadable = !altitude || !rest.empty();
        parsed.altitudeFt = altitude.value_or(kNoAltitudeFt);
    }
    return parsed;
}

}  // namespace korvel
