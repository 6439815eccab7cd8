#pragma once

#include "geo/GeoPoint.h"

namespace korvel {

/// The years that the magnetic model describes, as decimal years; the last one is its end.
inline constexpr double kMagneticModelBegins = 2025.0;
inline constexpr double kMagneticModelEnds = 2030.0;

/// 2026.5 is the middle of 2026. Month and day count from 1.
double decimalYear(int year, int month, int day);

/// The magnetic variation (declination) that the model gives for a valid point: degrees, east
/// positive, -180 to 180. `altitudeFt` counts above the ellipsoid; a mile of it changes next to
/// nothing. A year outside the model's counts as the nearest one inside: a computer whose clock has
/// stopped still gets a variation that is off by less than a degree over most of the Earth.
double modelVariationDeg(GeoPoint position, double year, double altitudeFt = 0.0);

}  // namespace korvel
