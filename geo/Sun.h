#pragma once

#include <cstdint>

#include "geo/GeoPoint.h"

namespace korvel {

/// The sun's upper edge on the horizon, with the bending of its light: its middle's angle from
/// straight above, degrees.
inline constexpr double kSunriseZenithDeg = 90.833;

/// The sun of one day at one place.
struct SunDay {
    enum class Kind : std::uint8_t { RisesAndSets, StaysUp, StaysDown };

    Kind kind = Kind::RisesAndSets;
    // Seconds since 1970-01-01T00:00:00 UTC; 0 unless it rises and sets.
    std::int64_t rise = 0;
    std::int64_t set = 0;

    /// Whether it is above the horizon at a moment of that day.
    [[nodiscard]] bool isUp(std::int64_t unixSeconds) const {
        return kind == Kind::StaysUp ||
               (kind == Kind::RisesAndSets && unixSeconds >= rise && unixSeconds < set);
    }
};

/// The day from the sun's lowest stand before `unixSeconds` to its next one, whatever date the
/// clocks show. Good to two minutes up to 65 degrees of latitude. After the solar equations of the
/// United States' National Oceanic and Atmospheric Administration, which follow J. Meeus,
/// Astronomical Algorithms.
SunDay sunDay(GeoPoint place, std::int64_t unixSeconds);

}  // namespace korvel
