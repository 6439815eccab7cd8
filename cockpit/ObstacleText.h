#pragma once

#include <optional>
#include <string>

#include "geo/GeoPoint.h"

namespace korvel {

struct Obstacle;

/// "TOWER, SEATTLE  top 1004 ft, 605 ft above ground  3.2 nm  lit": all that is known of it, how
/// far it is while there is a position; `altUnit` 1 for metres.
std::string obstacleText(const Obstacle& obstacle, const std::optional<GeoPoint>& own, int altUnit);

}  // namespace korvel
