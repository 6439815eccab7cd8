#include "map/ground/AirspaceLines.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "cockpit/CockpitData.h"
#include "geo/Geodesy.h"
#include "geo/Longitude.h"
#include "ground/airspace/AirspaceKind.h"

namespace korvel {
namespace {

constexpr int kNearRangeNm = 65;  ///< up to here outlines are two pixels wide
constexpr double kNearWidth = 2;
constexpr double kFarWidth = 1;

/// Where schemes give two kinds one colour, dashes tell them apart, as charts have it.
struct KindRow {
    AirspaceKind kind;
    ColorKey color;
    int toRangeNm;
    bool dashed;
};
constexpr std::array kKinds{KindRow{AirspaceKind::A, ColorKey::MapClassB, 250, false},
                            KindRow{AirspaceKind::B, ColorKey::MapClassB, 250, false},
                            KindRow{AirspaceKind::C, ColorKey::MapClassC, 250, false},
                            KindRow{AirspaceKind::D, ColorKey::MapClassD, 250, true},
                            KindRow{AirspaceKind::Special, ColorKey::MapSua, 250, false},
                            KindRow{AirspaceKind::Wave, ColorKey::MapSua, 100, true},
                            KindRow{AirspaceKind::Zone, ColorKey::MapClassX, 100, true},
                            KindRow{AirspaceKind::F, ColorKey::MapClassX, 65, true},
                            KindRow{AirspaceKind::Other, ColorKey::MapClassX, 40, true}};
constexpr double kDashPx = 9;
constexpr double kGapPx = 5;

bool isShown(const Airspace& airspace, const std::optional<AltitudeWindow>& window) {
    if (!window)
        return true;
    // Above ground that is not known a ceiling may lie anywhere.
    const bool ceilingKnown = airspace.ceiling.reference != LimitReference::Agl;
    return airspace.floorFt(std::nullopt) <= window->highFt &&
           !(ceilingKnown && airspace.ceilingFt(std::nullopt) < window->lowFt);
}

}  // namespace

AirspaceLook lookOf(const Airspace& airspace, int rangeNm) {
    const auto* const row = std::ranges::find(kKinds, kindOf(airspace), &KindRow::kind);
    return {row->color, row->toRangeNm, rangeNm <= kNearRangeNm ? kNearWidth : kFarWidth,
            row->dashed};
}

std::optional<AltitudeWindow> altitudeWindow(const CockpitData& data, int withinFt,
                                             const std::optional<AltitudeWindow>& former) {
    const std::optional<int> altitudeFt = data.seaAltitudeFt();
    if (!altitudeFt || withinFt <= 0)
        return std::nullopt;
    // With some slack, or a picture would be drawn anew with each foot, or back and forth at a
    // step.
    constexpr int kSlackFt = 100;
    const AltitudeWindow wanted{*altitudeFt - withinFt, *altitudeFt + withinFt};
    if (former && former->highFt - former->lowFt == 2 * (withinFt + kSlackFt) &&
        former->lowFt <= wanted.lowFt && wanted.highFt <= former->highFt)
        return former;
    return AltitudeWindow{wanted.lowFt - kSlackFt, wanted.highFt + kSlackFt};
}

void forDashes(Segment edge, double scale, const std::function<void(Segment)>& take) {
    const double length = std::hypot(edge.to.x - edge.from.x, edge.to.y - edge.from.y);
    const auto at = [&](double along) {
        const double share = std::min(along / length, 1.0);
        return Point{edge.from.x + share * (edge.to.x - edge.from.x),
                     edge.from.y + share * (edge.to.y - edge.from.y)};
    };
    const double step = (kDashPx + kGapPx) * scale;
    for (int i = 0; i * step < length; ++i)
        take({at(i * step), at(i * step + kDashPx * scale)});
}

void forAirspaces(
    const AirspaceSet& airspaces, const GroundGrid& grid, const GroundGrid::Box& box, int rangeNm,
    const std::optional<AltitudeWindow>& window,
    const std::function<void(const Airspace&, const AirspaceLook&, std::span<const Point>)>& take) {
    const bool whole = box.east - box.west >= 360;
    const AirspaceBox shown{box.south, whole ? -180 : wrappedLongitudeDeg(box.west), box.north,
                            whole ? 180 : wrappedLongitudeDeg(box.east)};
    std::vector<Point> points;
    for (const std::size_t i : airspaces.touching(shown)) {
        const Airspace& airspace = airspaces.all()[i];
        const AirspaceLook look = lookOf(airspace, rangeNm);
        if (rangeNm > look.toRangeNm || !isShown(airspace, window))
            continue;
        for (const AirspaceRing& ring : airspace.rings) {
            const double first = ring.front().lon * kRadToDeg;
            const double turn = std::round((grid.centerLonDeg() - first) / 360) * 360;
            points.clear();
            for (const GeoPoint point : ring)
                points.push_back(
                    grid.toRaster(point.lon * kRadToDeg + turn, point.lat * kRadToDeg));
            points.push_back(points.front());
            take(airspace, look, points);
        }
    }
}

}  // namespace korvel
