#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

/// Stands for "no altitude" in feet.
inline constexpr std::int32_t kNoAltitudeFt = std::numeric_limits<std::int32_t>::min();

/// Planned altitudes beyond these are refused.
inline constexpr double kLowestPlannedFt = -10000.0;
inline constexpr double kHighestPlannedFt = 100000.0;

/// Splits at spaces and line feeds; carriage returns, other white space around a word and empty
/// words are dropped.
std::vector<std::string> SplitWords(std::string_view text);

std::string_view stripped(std::string_view text);

/// The altitude that begins the text, which is in hundreds of feet and is taken off: feet,
/// truncated. Nothing without a number or out of range.
std::optional<std::int32_t> scanPlannedAltitude(std::string_view& text);

/// What a pilot typed, in capitals, but for the letter of a RecordKey.
std::string typedIdents(std::string_view text);

/// What a pilot typed as an altitude in hundreds of feet: all of the text must be it. Feet;
/// kNoAltitudeFt for an empty text, nothing for what is no altitude.
std::optional<std::int32_t> typedAltitude(std::string_view text);

/// "@45" for 4500 ft, "@45.5" for 4550 ft, nothing for none.
std::string altitudeSuffix(std::int32_t altitudeFt);

/// "LAT LON" in degrees with six decimals.
std::string positionText(GeoPoint position);
/// The other way round; not valid when there are no two numbers or they are out of range.
GeoPoint parsePositionText(std::string_view text);

/// A word of a route: [@]IDENT[@ALTITUDE].
struct RouteWord {
    std::string_view ident;
    std::int32_t altitudeFt = kNoAltitudeFt;
    bool isAirway = false;    ///< marked by a leading "@"
    bool unreadable = false;  ///< what follows the second "@" is no altitude

    /// The views point into `word`.
    static RouteWord parse(std::string_view word);
};

}  // namespace korvel
