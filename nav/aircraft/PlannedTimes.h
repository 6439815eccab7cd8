#pragma once

#include <optional>
#include <span>
#include <vector>

#include "config/AircraftProfile.h"
#include "nav/aircraft/Wind.h"

namespace korvel {

/// A leg of a plan that is not flown yet.
struct PlannedLeg {
    double courseTrueDeg = 0;
    double nm = 0;
};

/// What is climbed behind the first leg's beginning, and descended before the last one's end, feet.
struct PlannedHeights {
    double climbFt = 0;
    double descentFt = 0;
};

/// Hours for each leg: a climb, the cruise and a descent as the aircraft flies them, in still air
/// without a wind. Nothing for a leg that the wind does not let it fly.
std::vector<std::optional<double>> plannedHours(std::span<const PlannedLeg> legs,
                                                const AircraftProfile& aircraft,
                                                const PlannedHeights& heights,
                                                const std::optional<Wind>& wind);

/// Seconds until the descent must begin to lose `downFt` in the distance left at the aircraft's
/// rate and the present ground speed; negative behind that point. Nothing where nothing is to be
/// lost or nobody comes nearer.
std::optional<double> secondsToDescent(const AircraftProfile& aircraft, double downFt, double nm,
                                       double groundSpeedKt);

/// How high above a field a glide from so high above it ends, feet; negative: short of it. Nothing
/// where the wind does not let the aircraft come to it.
std::optional<double> glideArrivalFt(const AircraftProfile& aircraft, double aboveFieldFt,
                                     const PlannedLeg& way, const std::optional<Wind>& wind);

}  // namespace korvel
