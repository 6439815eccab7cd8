#include "cockpit/ObstacleText.h"

#include "config/texts/GroundTexts.h"
#include "geo/GeoText.h"
#include "ground/obstacles/Obstacle.h"

namespace korvel {

std::string obstacleName(const Obstacle& obstacle) {
    return obstacle.name.empty() ? std::string(text(kGroundTexts.unnamedObstacle)) : obstacle.name;
}

std::string obstacleText(const Obstacle& obstacle, int altUnit) {
    const std::string top = altitudeText(obstacle.topFt, altUnit);
    const std::string tall = altitudeText(obstacle.aglFt, altUnit);
    std::string words = formatText(kGroundTexts.obstacle, {top, tall});
    if (obstacle.isLit)
        words.append("  ").append(text(kGroundTexts.lit));
    if (!obstacle.isVerified)
        words.append("  ").append(text(kGroundTexts.unverified));
    return words;
}

}  // namespace korvel
