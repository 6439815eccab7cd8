#pragma once

#include <optional>
#include <vector>

#include "map/profile/ProfileRoute.h"

namespace korvel {

/// A place on a profile: miles from where it begins, feet above sea.
struct ProfilePoint {
    double nm = 0;
    double ft = 0;

    friend bool operator==(const ProfilePoint&, const ProfilePoint&) = default;
};

/// How the plan's altitudes are flown: level, climbing all the way to a higher one, and descending
/// at three degrees so as to come to a lower one in time.
struct PlannedAltitudes {
    std::vector<ProfilePoint> line;      ///< empty while no altitude is planned
    std::vector<ProfilePoint> descents;  ///< where each begins; what cannot be flown as gently
                                         ///< begins at once
};

/// From `startFt` where the route begins, or at the first planned altitude where that is unknown,
/// to the route's end.
PlannedAltitudes plannedAltitudes(const ProfileRoute& route, std::optional<double> startFt);

}  // namespace korvel
