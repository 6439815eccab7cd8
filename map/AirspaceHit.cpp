#include "map/AirspaceHit.h"

#include <algorithm>
#include <vector>

#include "ground/airspace/AirspaceSet.h"
#include "map/PlaceHit.h"
#include "map/ground/AirspaceLines.h"
#include "map/ground/GroundPicture.h"

namespace korvel {
namespace {

std::string lineOf(const Airspace& airspace) {
    std::string line = airspace.airspaceClass + ' ' + airspace.name + "  " +
                       limitWords(airspace.floor) + " / " + limitWords(airspace.ceiling);
    return airspace.frequency.empty() ? line : line + "  " + airspace.frequency;
}

bool touches(std::span<const Point> outline, Point finger, double radiusPx) {
    for (std::size_t i = 1; i < outline.size(); ++i)
        if (distanceToLine(finger, outline[i - 1], outline[i]) <= radiusPx)
            return true;
    return false;
}

}  // namespace

std::string airspacesAt(const GroundPicture& ground, const MapView& view, Point finger,
                        double radiusPx) {
    const AirspaceSet* const airspaces = ground.airspaces();
    const GroundGrid grid(view.projection, {0, 0}, 1);
    if (airspaces == nullptr || !ground.parts().airspaces || !grid.isFlat())
        return {};
    std::vector<const Airspace*> told;
    const GroundGrid::Box box = grid.box(view.area.right(), view.area.bottom());
    forAirspaces(
        *airspaces, grid, box, view.rangeNm, ground.altitudes(),
        [&](const Airspace& airspace, const AirspaceLook&, std::span<const Point> outline) {
            if (touches(outline, finger, radiusPx))
                told.push_back(&airspace);
        });
    if (told.empty())
        return {};
    for (const std::size_t i : airspaces->at(view.projection.unproject(finger)))
        told.push_back(&airspaces->all()[i]);
    std::ranges::stable_sort(told, {}, [](const Airspace* each) {
        return std::pair(each->floorFt(std::nullopt), each);
    });
    told.erase(std::unique(told.begin(), told.end()), told.end());
    std::string words;
    for (std::size_t i = 0; i < std::min(told.size(), kMostAirspacesTold); ++i)
        words += (words.empty() ? "" : "\n") + lineOf(*told[i]);
    return words;
}

}  // namespace korvel
