#pragma once

#include <cstddef>
#include <span>

#include "geo/GeoPoint.h"

namespace korvel {

struct AirwayCrossing {
    GeoPoint position;       ///< not valid when the airways do not cross
    std::size_t startA = 0;  ///< the fix of A at which the crossing segment begins
    std::size_t startB = 0;
};

/// Where two chains of straight segments cross first, in the order of A's segments, then B's. The
/// segments are straight in a plane of longitude and latitude: good enough between fixes that lie
/// as close as those of an airway. Segments that run exactly north cross nothing but by chance. A
/// fix that is not valid is a gap in its chain.
AirwayCrossing FindAirwayCrossing(std::span<const GeoPoint> a, std::span<const GeoPoint> b);

}  // namespace korvel
