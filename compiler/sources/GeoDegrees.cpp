#include "compiler/sources/GeoDegrees.h"

#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {

GeoPoint toGeoPoint(const GeoDegrees& position) {
    return {position.lat * kDegToRad, position.lon * kDegToRad};
}

bool samePlace(const GeoDegrees& a, const GeoDegrees& b) {
    constexpr double kToleranceDeg = 1.0 / 60.0;
    const double east = nearLongitude(a.lon, b.lon) - b.lon;
    return std::abs(a.lat - b.lat) < kToleranceDeg &&
           std::abs(east) * std::cos(a.lat * kDegToRad) < kToleranceDeg;
}

double nearLongitude(double lon, double reference) {
    return lon - 360.0 * std::round((lon - reference) / 360.0);
}

}  // namespace korvel
