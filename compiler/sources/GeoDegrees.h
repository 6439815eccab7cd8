#pragma once

#include "geo/GeoPoint.h"

namespace korvel {

/// A position as the sources give it: degrees, north and east positive.
struct GeoDegrees {
    double lat = 0.0;
    double lon = 0.0;
};

GeoPoint toGeoPoint(const GeoDegrees& position);

/// True within about a nautical mile in both directions: closer than that, two entries of one
/// name are one place, given with different care.
bool samePlace(const GeoDegrees& a, const GeoDegrees& b);

/// The longitude `lon` moved by whole turns to within half a turn of `reference`.
double nearLongitude(double lon, double reference);

}  // namespace korvel
