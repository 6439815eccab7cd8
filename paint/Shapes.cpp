#include "paint/Shapes.h"

#include <array>
#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

// Nose up, the right half from nose to tail; the half length is 1.
constexpr std::array kRightHalf{Point{0.00, -1.00}, Point{0.08, -0.96}, Point{0.14, -0.84},
                                Point{0.16, -0.42}, Point{0.96, -0.30}, Point{1.00, -0.22},
                                Point{0.98, 0.00},  Point{0.16, 0.06},  Point{0.09, 0.62},
                                Point{0.40, 0.68},  Point{0.43, 0.74},  Point{0.41, 0.90},
                                Point{0.07, 0.92},  Point{0.00, 1.00}};

}  // namespace

std::vector<Point> aircraftOutline(Point center, double halfLength, double angleDeg) {
    const double sine = std::sin(angleDeg * kDegToRad) * halfLength;
    const double cosine = std::cos(angleDeg * kDegToRad) * halfLength;
    std::vector<Point> outline;
    outline.reserve(2 * kRightHalf.size());
    const auto add = [&](double x, double y) {
        outline.push_back({center.x + x * cosine - y * sine, center.y + x * sine + y * cosine});
    };
    for (const Point& point : kRightHalf)
        add(point.x, point.y);
    for (std::size_t i = kRightHalf.size() - 2; i > 0; --i)
        add(-kRightHalf.at(i).x, kRightHalf.at(i).y);
    return outline;
}

std::vector<Point> runwayCorners(Point from, Point to, double width) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length > 0))
        return {};
    const double x = -(to.y - from.y) / length * width / 2;
    const double y = (to.x - from.x) / length * width / 2;
    return {{from.x + x, from.y + y},
            {from.x - x, from.y - y},
            {to.x - x, to.y - y},
            {to.x + x, to.y + y}};
}

std::array<Point, 4> cornersOf(const Bitmap& bitmap, const BitmapPlace& place) {
    const double sine = std::sin(place.turnDeg * kDegToRad) / place.pixelRatio;
    const double cosine = std::cos(place.turnDeg * kDegToRad) / place.pixelRatio;
    const auto corner = [&](double right, double down) -> Point {
        const double x = right - place.pivot.x;
        const double y = down - place.pivot.y;
        return {place.at.x + x * cosine - y * sine, place.at.y + y * cosine + x * sine};
    };
    const double width = bitmap.width;
    const double height = bitmap.height;
    return {corner(0, 0), corner(width, 0), corner(width, height), corner(0, height)};
}

}  // namespace korvel
