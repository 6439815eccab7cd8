#include "map/ground/GroundGrid.h"

#include <algorithm>
#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kMetresPerDegree = 60 * 1852;
constexpr double kLeastEastPx = 1e-6;

}  // namespace

GroundGrid::GroundGrid(const MapProjection& projection, Point topLeft, double scale)
    : lonDeg_(projection.center().lon * kRadToDeg),
      latDeg_(projection.center().lat * kRadToDeg),
      origin_{(projection.aircraft().x - topLeft.x) * scale,
              (projection.aircraft().y - topLeft.y) * scale},
      east_{projection.eastPerDegree().x * scale, projection.eastPerDegree().y * scale},
      north_{projection.northPerDegree().x * scale, projection.northPerDegree().y * scale},
      eastSquare_(east_.x * east_.x + east_.y * east_.y),
      northSquare_(north_.x * north_.x + north_.y * north_.y),
      flat_(std::hypot(east_.x, east_.y) > kLeastEastPx) {}

GroundGrid::Box GroundGrid::box(double width, double height) const {
    Box box{.south = 90, .west = lonDeg_ + 180, .north = -90, .east = lonDeg_ - 180};
    for (const double x : {0.0, width}) {
        for (const double y : {0.0, height}) {
            const auto [lon, lat] = degreesAt({x, y});
            box.west = std::min(box.west, lon);
            box.east = std::max(box.east, lon);
            box.south = std::min(box.south, lat);
            box.north = std::max(box.north, lat);
        }
    }
    return {.south = std::max(box.south, -90.0),
            .west = std::max(box.west, lonDeg_ - 180),
            .north = std::min(box.north, 90.0),
            .east = std::min(box.east, lonDeg_ + 180)};
}

Point GroundGrid::northWest() const {
    const double north = std::hypot(north_.x, north_.y);
    const double east = std::hypot(east_.x, east_.y);
    constexpr double kHalfRightAngle = 0.70710678118654752;
    return {(north_.x / north - east_.x / east) * kHalfRightAngle,
            (north_.y / north - east_.y / east) * kHalfRightAngle};
}

double GroundGrid::metresPerPixel() const {
    return kMetresPerDegree / std::hypot(north_.x, north_.y);
}

}  // namespace korvel
