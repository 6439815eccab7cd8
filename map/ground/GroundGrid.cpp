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
      flat_(std::hypot(east_.x, east_.y) > kLeastEastPx) {}

GroundGrid::Box GroundGrid::box(double width, double height) const {
    // The inverse of the two directions, which stand upright on each other.
    const double eastSquare = east_.x * east_.x + east_.y * east_.y;
    const double northSquare = north_.x * north_.x + north_.y * north_.y;
    Box box{.south = 90, .west = lonDeg_ + 180, .north = -90, .east = lonDeg_ - 180};
    for (const double x : {0.0, width}) {
        for (const double y : {0.0, height}) {
            const Point off{x - origin_.x, y - origin_.y};
            const double lon = lonDeg_ + (off.x * east_.x + off.y * east_.y) / eastSquare;
            const double lat = latDeg_ + (off.x * north_.x + off.y * north_.y) / northSquare;
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

double GroundGrid::metresPerPixel() const {
    return kMetresPerDegree / std::hypot(north_.x, north_.y);
}

}  // namespace korvel
