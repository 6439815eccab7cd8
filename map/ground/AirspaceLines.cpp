#include "map/ground/AirspaceLines.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Ascii.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr int kNearRangeNm = 65;  ///< up to here outlines are two pixels wide
constexpr double kNearWidth = 2;
constexpr double kFarWidth = 1;

struct ClassRow {
    std::string_view name;
    ColorKey color;
    int toRangeNm;
};
constexpr std::array kClasses{
    ClassRow{"A", ColorKey::MapClassB, 250},   ClassRow{"B", ColorKey::MapClassB, 250},
    ClassRow{"C", ColorKey::MapClassC, 250},   ClassRow{"TMA", ColorKey::MapClassC, 250},
    ClassRow{"D", ColorKey::MapClassD, 250},   ClassRow{"CTR", ColorKey::MapClassD, 250},
    ClassRow{"R", ColorKey::MapSua, 250},      ClassRow{"P", ColorKey::MapSua, 250},
    ClassRow{"Q", ColorKey::MapSua, 250},      ClassRow{"W", ColorKey::MapSua, 100},
    ClassRow{"TMZ", ColorKey::MapClassX, 100}, ClassRow{"RMZ", ColorKey::MapClassX, 100},
    ClassRow{"ATZ", ColorKey::MapClassX, 100}, ClassRow{"MATZ", ColorKey::MapClassX, 100},
    ClassRow{"F", ColorKey::MapClassX, 65}};
/// E, G, sectors of gliders and what is not known.
constexpr ClassRow kOther{"", ColorKey::MapClassX, 40};

}  // namespace

AirspaceLook lookOf(const Airspace& airspace, int rangeNm) {
    const auto* const found = std::ranges::find_if(kClasses, [&airspace](const ClassRow& row) {
        return equalsIgnoringCase(row.name, airspace.airspaceClass) ||
               (airspace.airspaceClass == "UNC" && equalsIgnoringCase(row.name, airspace.type));
    });
    const ClassRow& row = found == kClasses.end() ? kOther : *found;
    return {row.color, row.toRangeNm, rangeNm <= kNearRangeNm ? kNearWidth : kFarWidth};
}

void forAirspaces(
    const AirspaceSet& airspaces, const GroundGrid& grid, const GroundGrid::Box& box, int rangeNm,
    const std::function<void(const Airspace&, const AirspaceLook&, std::span<const Point>)>& take) {
    const auto wrapped = [](double lon) { return PositiveMod(lon + 180, 360) - 180; };
    const bool whole = box.east - box.west >= 360;
    const AirspaceBox shown{box.south, whole ? -180 : wrapped(box.west), box.north,
                            whole ? 180 : wrapped(box.east)};
    std::vector<Point> points;
    for (const std::size_t i : airspaces.touching(shown)) {
        const Airspace& airspace = airspaces.all()[i];
        const AirspaceLook look = lookOf(airspace, rangeNm);
        if (rangeNm > look.toRangeNm)
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
