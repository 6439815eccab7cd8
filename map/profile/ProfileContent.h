#pragma once

#include <optional>
#include <string>
#include <vector>

#include "geo/Units.h"
#include "ground/profile/AirspacesAlong.h"
#include "ground/profile/GroundAlong.h"
#include "map/profile/PlannedAltitudes.h"
#include "map/profile/ProfileRoute.h"

namespace korvel {

struct Text;

/// What one frame of the profile is drawn from. Distances count from where it begins, altitudes are
/// feet above sea.
struct ProfileContent {
    ProfileRoute route;
    double lengthNm = 0;  ///< what is shown of it; behind its last stop it goes straight on
    ProfileLine line;     ///< of that length
    std::vector<GroundSample> ground;      ///< at the line's points
    std::vector<AirspaceSlice> airspaces;  ///< those that the settings show
    PlannedAltitudes planned;
    std::optional<double> altitudeFt{};  ///< of the aircraft; absent without a fix in 3D
    /// So much higher the aircraft will be after each mile as it climbs now; absent while that or
    /// its speed is unknown.
    std::optional<double> climbFtPerNm{};
    double predictedNm = 0;  ///< how far that can be told
    int altUnit = 0;         ///< 1 for metres
    DistanceUnit distanceUnit = DistanceUnit::NauticalMiles;
};

}  // namespace korvel
