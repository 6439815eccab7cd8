#pragma once

namespace korvel {

/// Stands for "no position" in either coordinate of a GeoPoint.
inline constexpr double kNoPosition = 12345.0;

/// Stands for "no course, heading, bearing, track or variation" in stored angles (degrees).
inline constexpr double kNoAngle = 1000.0;

/// A position on the sphere: radians, north and east positive.
struct GeoPoint {
    double lat = kNoPosition;
    double lon = kNoPosition;

    friend bool operator==(const GeoPoint&, const GeoPoint&) = default;
};

/// True unless either coordinate holds kNoPosition exactly.
constexpr bool IsValid(const GeoPoint& point) {
    return point.lat != kNoPosition && point.lon != kNoPosition;
}

}  // namespace korvel
