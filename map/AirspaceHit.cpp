#include "map/AirspaceHit.h"

#include <algorithm>
#include <span>
#include <utility>

#include "ground/airspace/AirspaceSet.h"
#include "map/PlaceHit.h"
#include "map/ground/AirspaceLines.h"
#include "map/ground/GroundPicture.h"

namespace korvel {
namespace {

bool touches(std::span<const Point> outline, Point finger, double radiusPx) {
    for (std::size_t i = 1; i < outline.size(); ++i)
        if (distanceToLine(finger, outline[i - 1], outline[i]) <= radiusPx)
            return true;
    return false;
}

}  // namespace

AirspaceHits airspacesAt(const GroundPicture& ground, const MapView& view, Point finger,
                         double radiusPx) {
    const AirspaceSet* const airspaces = ground.airspaces();
    const GroundGrid grid(view.projection, {0, 0}, 1);
    if (airspaces == nullptr || !ground.parts().airspaces || !grid.isFlat())
        return {};
    AirspaceHits hits;
    const GroundGrid::Box box = grid.box(view.area.right(), view.area.bottom());
    forAirspaces(
        *airspaces, grid, box, view.rangeNm, ground.altitudes(),
        [&](const Airspace& airspace, const AirspaceLook&, std::span<const Point> outline) {
            if (touches(outline, finger, radiusPx))
                hits.airspaces.push_back(&airspace);
        });
    hits.onOutline = !hits.airspaces.empty();
    for (const std::size_t i : airspaces->at(view.projection.unproject(finger)))
        hits.airspaces.push_back(&airspaces->all()[i]);
    std::ranges::stable_sort(hits.airspaces, {}, [](const Airspace* each) {
        return std::pair(each->floorFt(std::nullopt), each);
    });
    hits.airspaces.erase(std::unique(hits.airspaces.begin(), hits.airspaces.end()),
                         hits.airspaces.end());
    hits.airspaces.resize(std::min(hits.airspaces.size(), kMostAirspacesTold));
    return hits;
}

std::string airspaceLine(const Airspace& airspace) {
    const std::string line =
        airspace.airspaceClass + ' ' + airspace.name + "  " + limitWords(airspace);
    return airspace.frequency.empty() ? line : line + "  " + airspace.frequency;
}

}  // namespace korvel
