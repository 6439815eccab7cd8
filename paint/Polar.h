#pragma once

#include "geo/WholeDegreeTrig.h"
#include "paint/Canvas.h"

namespace korvel {

/// The point at a distance and a bearing on the screen, from up to the right.
inline Point polar(Point center, double radius, int deg) {
    return {center.x + radius * SinDeg(deg), center.y - radius * CosDeg(deg)};
}

}  // namespace korvel
