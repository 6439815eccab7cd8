#pragma once

#include <optional>

#include "geo/GeoPoint.h"

namespace korvel {

struct CockpitData;

/// Slower than this, in knots, the time to a place says nothing.
inline constexpr double kSlowestToTellTimeKt = 5;

/// Nautical miles along the plan to its end; nothing while something else is flown.
std::optional<double> planRestNm(const CockpitData& data);

/// Where the flight ends as far as is known, and the seconds until then at the present speed.
struct RestOfFlight {
    GeoPoint end;
    double seconds = 0;
};

/// Of what is flown: the plan, or direct to a place. Nothing without either, or nearly standing.
std::optional<RestOfFlight> restOfFlight(const CockpitData& data);

}  // namespace korvel
