#pragma once

// A leg or a waypoint of the plan that a finger pulls elsewhere, without its looks.

#include <cstddef>
#include <optional>
#include <string>

#include "geo/GeoPoint.h"
#include "map/MapView.h"

namespace korvel {

struct CockpitData;

/// What a finger holds of the plan, and where it has pulled it to.
struct PlanBand {
    std::size_t row = 0;  ///< of the plan: the waypoint, or the one that the leg leads to
    std::string key{};    ///< of that row
    /// Where the waypoint stands in the plan; none for a leg, which gets a new waypoint.
    std::optional<GeoPoint> former{};
    std::optional<GeoPoint> before{};  ///< where the way to it begins; none at the plan's begin
    std::optional<GeoPoint> behind{};  ///< where the way from it ends; none at the plan's end
    double totalNm = 0;                ///< of the plan as it is
    GeoPoint at{};
    std::string name{};  ///< of the place there; empty for bare ground
};

/// What becomes of the way, nautical miles.
struct BandFigures {
    std::optional<double> toNm;    ///< of the new leg to the place
    std::optional<double> fromNm;  ///< of the one from there
    double extraNm = 0;            ///< longer than before; negative for shorter
    double totalNm = 0;            ///< of the whole plan then
};

BandFigures figuresOf(const PlanBand& band);

/// What a finger takes hold of: a waypoint within `radiusPx`, else a leg within half of that.
/// Nothing of what lies behind the aircraft, which would change nothing. The leg that is flown
/// begins at the aircraft.
std::optional<PlanBand> takePlan(Point finger, const CockpitData& data, const MapView& view,
                                 double radiusPx);

}  // namespace korvel
