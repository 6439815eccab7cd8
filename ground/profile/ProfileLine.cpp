#include "ground/profile/ProfileLine.h"

#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

struct Leg {
    GeoPoint from;
    double courseRad = 0;
    double beginsNm = 0;
    double endsNm = 0;
};

std::vector<Leg> legsOf(std::span<const GeoPoint> way) {
    std::vector<Leg> legs;
    double nm = 0;
    for (std::size_t i = 0; i + 1 < way.size(); ++i) {
        const GeoPoint from = way[i];
        const GeoPoint to = way[i + 1];
        if (SamePoint(from, to))
            continue;
        const double begins = nm;
        nm += DistanceNm(from, to);
        legs.push_back({from, TrueCourse(from.lat, from.lon, to.lat, to.lon), begins, nm});
    }
    return legs;
}

}  // namespace

ProfileLine profileLine(std::span<const GeoPoint> way, double lengthNm, std::size_t steps) {
    ProfileLine line;
    const std::vector<Leg> legs = legsOf(way);
    if (legs.empty() || lengthNm <= 0 || steps == 0)
        return line;
    line.stepNm = lengthNm / static_cast<double>(steps);
    line.points.reserve(steps + 1);
    auto leg = legs.begin();
    for (std::size_t i = 0; i <= steps; ++i) {
        while (leg + 1 != legs.end() && line.nmOf(i) > leg->endsNm)
            ++leg;
        GeoPoint point;
        PointAtRadialDistance(leg->from.lat, leg->from.lon,
                              (line.nmOf(i) - leg->beginsNm) / kNmPerRadian, leg->courseRad,
                              point.lat, point.lon);
        if (i > 0)
            point.lon += std::round((line.points.back().lon - point.lon) / kTwoPi) * kTwoPi;
        line.points.push_back(point);
    }
    return line;
}

GeoPoint wrapped(GeoPoint point) { return {point.lat, PositiveMod(point.lon + kPi, kTwoPi) - kPi}; }

}  // namespace korvel
