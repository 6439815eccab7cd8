#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "ground/airspace/AirspaceSet.h"
#include "map/ground/GroundGrid.h"
#include "paint/MapColorCache.h"

namespace korvel {

struct CockpitData;

/// How an airspace is drawn.
struct AirspaceLook {
    ColorKey color = ColorKey::MapClassX;
    int toRangeNm = 0;  ///< the largest range at which it shows
    double width = 1;   ///< of its outline, pixels of the canvas
    bool dashed = false;
};

/// Feet above sea, between which an airspace must reach to be shown.
struct AltitudeWindow {
    int lowFt = 0;
    int highFt = 0;

    friend bool operator==(const AltitudeWindow&, const AltitudeWindow&) = default;
};

/// So many feet above and below the aircraft and a little more: the former one for as long as that
/// does. Nothing, which shows all, for 0 and while the altitude is not known.
std::optional<AltitudeWindow> altitudeWindow(const CockpitData& data, int withinFt,
                                             const std::optional<AltitudeWindow>& former);

/// By its kind. Class E and the like, of which a country is full, show in the near ranges only.
AirspaceLook lookOf(const Airspace& airspace, int rangeNm);

/// Cuts an edge of a dashed outline into its dashes, `scale` pixels of the raster in one of the
/// canvas.
void forDashes(Segment edge, double scale, const std::function<void(Segment)>& take);

/// The airspaces that the raster shows at this range and these altitudes: each ring as a closed
/// line on it. The points are valid during the call only.
void forAirspaces(
    const AirspaceSet& airspaces, const GroundGrid& grid, const GroundGrid::Box& box, int rangeNm,
    const std::optional<AltitudeWindow>& window,
    const std::function<void(const Airspace&, const AirspaceLook&, std::span<const Point>)>& take);

}  // namespace korvel
