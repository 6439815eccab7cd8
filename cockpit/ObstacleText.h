#pragma once

#include <string>

namespace korvel {

struct Obstacle;

/// What it is, "Obstacle" where its file has no name for it.
std::string obstacleName(const Obstacle& obstacle);

/// "top 1004 ft, 605 ft above ground  lit": all else that is known of it; `altUnit` 1 for metres.
std::string obstacleText(const Obstacle& obstacle, int altUnit);

}  // namespace korvel
