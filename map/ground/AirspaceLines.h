#pragma once

#include <functional>
#include <span>
#include <vector>

#include "ground/airspace/AirspaceSet.h"
#include "map/ground/GroundGrid.h"
#include "paint/MapColorCache.h"

namespace korvel {

/// How an airspace is drawn.
struct AirspaceLook {
    ColorKey color = ColorKey::MapClassX;
    int toRangeNm = 0;  ///< the largest range at which it shows
    double width = 1;   ///< of its outline, pixels of the canvas
};

/// By its class, whatever letters it is written in. Class E and the like, of which a country is
/// full, show in the near ranges only.
AirspaceLook lookOf(const Airspace& airspace, int rangeNm);

/// The airspaces that the raster shows at this range: each ring as a closed line on it. The points
/// are valid during the call only.
void forAirspaces(
    const AirspaceSet& airspaces, const GroundGrid& grid, const GroundGrid::Box& box, int rangeNm,
    const std::function<void(const Airspace&, const AirspaceLook&, std::span<const Point>)>& take);

}  // namespace korvel
