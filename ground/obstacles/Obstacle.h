#pragma once

#include <optional>
#include <string>

#include "geo/GeoPoint.h"

namespace korvel {

/// Something tall that stands on the ground.
struct Obstacle {
    GeoPoint position;
    int aglFt = 0;                   ///< its height above the ground
    std::optional<int> elevationFt;  ///< of the ground, above sea
    int topFt = 0;                   ///< above sea; where the file tells only aglFt, that
    std::string name;                ///< "STACK, FORT MORGAN"
    bool isLit = false;
    bool isVerified = true;
};

}  // namespace korvel
