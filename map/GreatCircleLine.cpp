#include "map/GreatCircleLine.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "geo/Geodesy.h"
#include "map/MapViewport.h"
#include "paint/Clip.h"

namespace korvel {
namespace {

constexpr double kTolerancePx = 0.5;
constexpr double kLongestPieceRad = 5 * kDegToRad;
/// A piece of five degrees bends by a thousand pixels at the closest range; each halving leaves a
/// quarter.
constexpr int kMostHalvings = 10;
/// How far a piece may bend away from the box around its ends and middle, of its length.
constexpr double kBulge = 0.25;

struct Vector {
    double x = 0;
    double y = 0;
    double z = 0;
};

Vector unitVector(GeoPoint point) {
    return {std::cos(point.lat) * std::cos(point.lon), std::cos(point.lat) * std::sin(point.lon),
            std::sin(point.lat)};
}

GeoPoint placeOf(const Vector& v) {
    return {std::atan2(v.z, std::hypot(v.x, v.y)), std::atan2(v.y, v.x)};
}

/// A point of the way, on the globe and on the screen.
struct Node {
    Vector onGlobe;
    double fromCenterRad = 0;  ///< longitude, the short way around
    Point onScreen;
};

double distance(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }
Point between(Point a, Point b, double share) {
    return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share};
}

class Tracer {
 public:
    Tracer(const MapProjection& projection, const Rect& view,
           const std::function<void(std::span<const Point>)>& piece)
        : projection_(projection), view_(view), piece_(piece) {}

    void trace(GeoPoint from, GeoPoint to) {
        const Vector start = unitVector(from);
        const Vector end = unitVector(to);
        const double angle = GreatCircleDistance(from.lat, from.lon, to.lat, to.lon);
        const int pieces = std::max(1, static_cast<int>(std::ceil(angle / kLongestPieceRad)));
        Node before = nodeAt(start);
        points_.push_back(before.onScreen);
        for (int i = 1; i <= pieces; ++i) {
            const Node next = nodeAt(i == pieces ? end : partOf(start, end, angle, i, pieces));
            append(before, next, 0);
            before = next;
        }
        flush();
    }

 private:
    [[nodiscard]] Node nodeAt(const Vector& onGlobe) const {
        const GeoPoint place = placeOf(onGlobe);
        return {onGlobe, PositiveMod(place.lon - projection_.center().lon + kPi, kTwoPi) - kPi,
                projection_.project(place)};
    }

    /// A share of the way between two unit vectors at that angle.
    static Vector partOf(const Vector& a, const Vector& b, double angle, int part, int parts) {
        const double share = static_cast<double>(part) / parts;
        const double wa = std::sin((1 - share) * angle);
        const double wb = std::sin(share * angle);
        return {wa * a.x + wb * b.x, wa * a.y + wb * b.y, wa * a.z + wb * b.z};
    }

    [[nodiscard]] Node middleOf(const Node& a, const Node& b) const {
        const Vector &u = a.onGlobe, &v = b.onGlobe;
        const Vector sum{u.x + v.x, u.y + v.y, u.z + v.z};
        const double length = std::hypot(sum.x, sum.y, sum.z);
        return nodeAt({sum.x / length, sum.y / length, sum.z / length});
    }

    [[nodiscard]] bool mayBeSeen(const Node& a, const Node& middle, const Node& b) const {
        const auto [left, right] = std::minmax({a.onScreen.x, middle.onScreen.x, b.onScreen.x});
        const auto [top, bottom] = std::minmax({a.onScreen.y, middle.onScreen.y, b.onScreen.y});
        const double bulge = kBulge * distance(a.onScreen, b.onScreen);
        const Rect reach = grown(view_, bulge);
        return left <= reach.right() && right >= reach.x && top <= reach.bottom() &&
               bottom >= reach.y;
    }

    static bool crossesSeam(const Node& a, const Node& b) {
        return std::abs(a.fromCenterRad - b.fromCenterRad) > kPi;
    }

    /// A way across the equator is bent like an S, so its middle alone may lie on the chord.
    [[nodiscard]] bool isStraight(const Node& a, const Node& middle, const Node& b) const {
        const Node quarter = middleOf(a, middle);
        return !crossesSeam(a, b) &&
               distance(middle.onScreen, between(a.onScreen, b.onScreen, 0.5)) <= kTolerancePx &&
               distance(quarter.onScreen, between(a.onScreen, b.onScreen, 0.25)) <= kTolerancePx;
    }

    void append(const Node& a, const Node& b, int halvings) {
        const Node middle = middleOf(a, b);
        if (halvings < kMostHalvings && mayBeSeen(a, middle, b) && !isStraight(a, middle, b)) {
            append(a, middle, halvings + 1);
            append(middle, b, halvings + 1);
            return;
        }
        if (crossesSeam(a, b))
            flush();
        points_.push_back(b.onScreen);
    }

    void flush() {
        clipPolyline(points_, view_, piece_);
        points_.clear();
    }

    const MapProjection& projection_;
    Rect view_;
    const std::function<void(std::span<const Point>)>& piece_;
    std::vector<Point> points_;
};

}  // namespace

void traceGreatCircle(const MapProjection& projection, GeoPoint from, GeoPoint to, const Rect& view,
                      const std::function<void(std::span<const Point>)>& piece) {
    if (IsValid(from) && IsValid(to))
        Tracer(projection, view, piece).trace(from, to);
}

}  // namespace korvel
