#pragma once

#include "geo/Geodesy.h"

namespace korvel {

/// The same meridian from -180 up to but not including 180 degrees.
inline double wrappedLongitudeDeg(double degrees) {
    return PositiveMod(degrees + 180.0, 360.0) - 180.0;
}

}  // namespace korvel
