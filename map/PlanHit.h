#pragma once

// Which leg or waypoint of the plan a finger on the map means.

#include <cstddef>
#include <optional>

#include "map/MapView.h"

namespace korvel {

struct CockpitData;

/// The nearest waypoint within so many pixels of the finger, as a row of the plan.
std::optional<std::size_t> planPlaceAt(const CockpitData& data, const MapView& view, Point finger,
                                       double radiusPx);

/// The row that the nearest leg within so many pixels leads to. What lies behind the aircraft is
/// none.
std::optional<std::size_t> planLegAt(const CockpitData& data, const MapView& view, Point finger,
                                     double radiusPx);

}  // namespace korvel
