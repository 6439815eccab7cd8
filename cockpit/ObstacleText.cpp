#include "cockpit/ObstacleText.h"

#include "config/texts/GroundTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "ground/obstacles/Obstacle.h"

namespace korvel {

std::string obstacleText(const Obstacle& obstacle, const std::optional<GeoPoint>& own,
                         int altUnit) {
    const std::string top = altitudeText(obstacle.topFt, altUnit);
    const std::string tall = altitudeText(obstacle.aglFt, altUnit);
    const std::string_view name =
        obstacle.name.empty() ? text(kGroundTexts.unnamedObstacle) : obstacle.name;
    std::string words = formatText(kGroundTexts.obstacle, {name, top, tall});
    if (own)
        words += "  " + distanceTenthsText(DistanceNm(*own, obstacle.position),
                                           DistanceUnit::NauticalMiles);
    if (obstacle.isLit)
        words.append("  ").append(text(kGroundTexts.lit));
    if (!obstacle.isVerified)
        words.append("  ").append(text(kGroundTexts.unverified));
    return words;
}

}  // namespace korvel
