#pragma once

#include <optional>

#include "map/profile/ProfileContent.h"

namespace korvel {

/// Where the aircraft comes to if it climbs or descends on as now.
struct PredictedPath {
    ProfilePoint from;
    ProfilePoint to;
    bool meetsGround = false;  ///< there; ground that is not known stops nothing
};

/// Nothing while altitude, speed or climb are unknown, and where the profile does not begin at the
/// aircraft.
std::optional<PredictedPath> predictedPath(const ProfileContent& content);

}  // namespace korvel
