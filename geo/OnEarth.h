#pragma once

#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {

/// Whether a latitude and longitude are such; receivers send anything, also a latitude of 99
/// degrees.
inline bool IsOnEarth(const GeoPoint& point) {
    return IsValid(point) && std::abs(point.lat) <= kPi / 2 && std::abs(point.lon) <= kPi;
}

}  // namespace korvel
