#pragma once

// Which airspaces a finger on the map means.

#include <cstddef>
#include <string>
#include <vector>

#include "map/MapView.h"

namespace korvel {

class AirspaceSet;
class GroundPicture;
struct Airspace;

/// What lies over or under a finger, lowest floor first, at most kMostAirspacesTold. The pointers
/// lead into the set that the picture shows.
struct AirspaceHits {
    std::vector<const Airspace*> airspaces;
    bool onOutline = false;  ///< the finger touches the line of one that shows
};

/// All airspaces that hold the point, and those that show with their outline under the finger;
/// nothing while the map shows none. `radiusPx` is the finger's.
AirspaceHits airspacesAt(const GroundPicture& ground, const MapView& view, Point finger,
                         double radiusPx);
inline constexpr std::size_t kMostAirspacesTold = 6;

/// "D LONDON CTR  GND / 25  118.5".
std::string airspaceLine(const Airspace& airspace);

}  // namespace korvel
