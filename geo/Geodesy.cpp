#include "geo/Geodesy.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel {

double GreatCircleDistance(double lat1, double lon1, double lat2, double lon2) {
    const double s1 = std::sin((lat1 - lat2) / 2);
    const double s2 = std::sin((lon1 - lon2) / 2);
    return 2 * std::asin(std::sqrt(s1 * s1 + std::cos(lat1) * std::cos(lat2) * s2 * s2));
}

double DistanceNm(GeoPoint a, GeoPoint b) {
    return GreatCircleDistance(a.lat, a.lon, b.lat, b.lon) * kNmPerRadian;
}

double TrueCourse(double lat1, double lon1, double lat2, double lon2) {
    constexpr double kPoleCosine = 0.001;
    if (SamePoint({lat1, lon1}, {lat2, lon2}))
        return 0;
    if (std::cos(lat1) < kPoleCosine)
        return lat1 > 0 ? kPi : 0;
    const double dlon = lon2 - lon1;
    const double course =
        PositiveMod(std::atan2(std::sin(dlon) * std::cos(lat2),
                               std::cos(lat1) * std::sin(lat2) -
                                   std::sin(lat1) * std::cos(lat2) * std::cos(dlon)),
                    kTwoPi);
    return course;
}

double TrueCourseDeg(GeoPoint a, GeoPoint b) {
    return TrueCourse(a.lat, a.lon, b.lat, b.lon) * kRadToDeg;
}

void PointAtRadialDistance(double lat1, double lon1, double distance, double course, double& lat,
                           double& lon) {
    lat = std::asin(std::sin(lat1) * std::cos(distance) +
                    std::cos(lat1) * std::sin(distance) * std::cos(course));
    if (std::cos(lat) == 0) {
        lon = lon1;
        return;
    }
    const double dlon = std::atan2(std::sin(course) * std::sin(distance) * std::cos(lat1),
                                   std::cos(distance) - std::sin(lat1) * std::sin(lat));
    lon = PositiveMod(lon1 + dlon + kPi, kTwoPi) - kPi;
}

void GreatCircleMidLatitude(double lat1, double lon1, double lat2, double lon2, double& lat,
                            double& lon) {
    lon = (lon1 + lon2) / 2;
    const double spread = std::sin(lon1 - lon2);
    if (spread == 0) {
        lat = (lat1 + lat2) / 2;
        return;
    }
    lat = std::atan((std::sin(lat1) * std::cos(lat2) * std::sin(lon - lon2) -
                     std::sin(lat2) * std::cos(lat1) * std::sin(lon - lon1)) /
                    (std::cos(lat1) * std::cos(lat2) * spread));
}

bool SamePoint(GeoPoint a, GeoPoint b) {
    return std::abs(a.lat - b.lat) < kSamePointRad && std::abs(a.lon - b.lon) < kSamePointRad;
}

double PositiveMod(double y, double x) {
    const double result = y - x * std::floor(y / x);
    // A tiny negative y rounds to x itself, which is outside the range. No number stays none.
    return result >= x ? 0 : result;
}

namespace {

/// The whole number in value, at the end of int's range for what lies beyond it; 0 for no number.
int truncateToInt(double value) {
    using Range = std::numeric_limits<int>;
    return std::isnan(value)
               ? 0
               : static_cast<int>(std::clamp<double>(value, Range::min(), Range::max()));
}

}  // namespace

int RoundToInt(double value) { return truncateToInt(value >= 0 ? value + 0.5 : value - 0.5); }

int RoundToInt(float value) { return truncateToInt(value >= 0 ? value + 0.5F : value - 0.5F); }

double TruncTowardZero(double value) { return std::trunc(value); }

double FractionalPart(double value) { return value - TruncTowardZero(value); }

int HeadingDifferenceDeg(double from, double to) {
    const int a = RoundToInt(from) % 360;
    const int b = RoundToInt(to) % 360;
    const int d = b - a;
    if (a <= b)
        return d > 180 ? d - 360 : d;
    return -d < 181 ? d : d + 360;
}

}  // namespace korvel
