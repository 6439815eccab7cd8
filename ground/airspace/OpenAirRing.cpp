#include "ground/airspace/OpenAirRing.h"

#include <algorithm>
#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kFullTurnDeg = 360;
constexpr double kStepDeg = 5;
constexpr double kLargestRadiusNm = 1000;
/// Ends of an arc that are closer than this (90 m) are one point written twice, no full circle.
constexpr double kSameEndNm = 0.05;

GeoPoint atRadial(GeoPoint center, double nm, double bearingDeg) {
    GeoPoint point;
    PointAtRadialDistance(center.lat, center.lon, nm / kNmPerRadian, bearingDeg * kDegToRad,
                          point.lat, point.lon);
    return point;
}

/// Radians by which one point may come out different in two ways: a few millimetres.
constexpr double kRounding = 1e-9;

bool isRadius(double nm) { return nm > 0 && nm <= kLargestRadiusNm; }

/// Without points that say nothing, closed, its longitudes counted on.
AirspaceRing closed(const AirspaceRing& points) {
    AirspaceRing ring;
    for (GeoPoint point : points) {
        if (!ring.empty()) {
            const double turns = std::round((point.lon - ring.back().lon) / kTwoPi);
            point.lon -= turns * kTwoPi;
        }
        if (ring.empty() || std::max(std::abs(point.lat - ring.back().lat),
                                     std::abs(point.lon - ring.back().lon)) > kRounding)
            ring.push_back(point);
    }
    while (ring.size() > 1 && SamePoint(ring.front(), ring.back()))
        ring.pop_back();
    return ring;
}

/// The band of an airway: out along its left, back along its right.
AirspaceRing bandOf(const AirspaceRing& line, double widthNm) {
    AirspaceRing band;
    AirspaceRing back;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const GeoPoint before = line[i == 0 ? 0 : i - 1];
        const GeoPoint after = line[std::min(i + 1, line.size() - 1)];
        const double course = TrueCourseDeg(before, after);
        band.push_back(atRadial(line[i], widthNm / 2, course - 90));
        back.push_back(atRadial(line[i], widthNm / 2, course + 90));
    }
    band.insert(band.end(), back.rbegin(), back.rend());
    return band;
}

}  // namespace

std::string OpenAirRing::addArc(GeoPoint center, double radiusNm, double fromDeg, double toDeg,
                                bool clockwise) {
    if (!isRadius(radiusNm) || fromDeg > kFullTurnDeg || toDeg > kFullTurnDeg)
        return "Not an arc";
    double turn = PositiveMod(clockwise ? toDeg - fromDeg : fromDeg - toDeg, kFullTurnDeg);
    if (turn == 0)
        turn = kFullTurnDeg;
    sweep(center, radiusNm, radiusNm, fromDeg, clockwise ? turn : -turn);
    return {};
}

void OpenAirRing::addArc(GeoPoint center, GeoPoint from, GeoPoint to, bool clockwise) {
    points_.push_back(from);
    if (DistanceNm(from, to) > kSameEndNm) {
        const double fromDeg = TrueCourseDeg(center, from);
        const double toDeg = TrueCourseDeg(center, to);
        const double turn =
            PositiveMod(clockwise ? toDeg - fromDeg : fromDeg - toDeg, kFullTurnDeg);
        sweep(center, DistanceNm(center, from), DistanceNm(center, to), fromDeg,
              clockwise ? turn : -turn);
    }
    points_.push_back(to);
}

void OpenAirRing::sweep(GeoPoint center, double fromNm, double toNm, double fromDeg,
                        double sweepDeg) {
    const int steps = std::max(1, static_cast<int>(std::ceil(std::abs(sweepDeg) / kStepDeg)));
    for (int i = 0; i <= steps; ++i) {
        const double share = static_cast<double>(i) / steps;
        points_.push_back(atRadial(center, fromNm + share * (toNm - fromNm),
                                   PositiveMod(fromDeg + share * sweepDeg, kFullTurnDeg)));
    }
}

std::string OpenAirRing::addCircle(GeoPoint center, double radiusNm) {
    if (!isRadius(radiusNm))
        return "Not a radius";
    AirspaceRing& circle = circles_.emplace_back();
    for (int step = 0; step * kStepDeg < kFullTurnDeg; ++step)
        circle.push_back(atRadial(center, radiusNm, step * kStepDeg));
    return {};
}

void OpenAirRing::addAirway(GeoPoint point, double widthNm) {
    airway_.push_back(point);
    airwayNm_ = widthNm;
}

bool OpenAirRing::isEmpty() const { return points_.empty() && circles_.empty() && airway_.empty(); }

std::string OpenAirRing::finish(std::vector<AirspaceRing>& rings) const {
    rings.clear();
    if (const AirspaceRing ring = closed(points_); ring.size() >= 3)
        rings.push_back(ring);
    else if (!points_.empty())
        return "Fewer than three points";
    for (const AirspaceRing& circle : circles_)
        rings.push_back(closed(circle));
    if (airway_.size() >= 2)
        rings.push_back(closed(bandOf(airway_, airwayNm_)));
    else if (!airway_.empty())
        return "An airway of one point";
    return rings.empty() ? "Nothing to draw" : "";
}

}  // namespace korvel
