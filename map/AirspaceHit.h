#pragma once

#include <string>

#include "map/MapView.h"

namespace korvel {

class AirspaceSet;
class GroundPicture;

/// What is said of the airspaces when a finger touches the outline of one that shows: all that lie
/// over or under the point, a line each, "D LONDON CTR  GND / 25  118.5", lowest first, and at most
/// so many. Empty where it touches none. `radiusPx` is the finger's.
std::string airspacesAt(const GroundPicture& ground, const MapView& view, Point finger,
                        double radiusPx);
inline constexpr std::size_t kMostAirspacesTold = 6;

}  // namespace korvel
