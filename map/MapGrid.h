#pragma once

// The grid of meridians and parallels on the map, as numbers.

#include <string>
#include <vector>

#include "map/MapViewport.h"
#include "paint/Canvas.h"

namespace korvel {

/// A meridian or parallel as far as it crosses the view.
struct GridLine {
    Segment segment;
    std::string label;  ///< "N48°00'", "E008°30'"

    friend bool operator==(const GridLine& a, const GridLine& b) { return a.label == b.label; }
};

/// The finest step of the grid, in seconds of arc, whose lines are at least `closestPx` apart when
/// one degree is `pixelsPerDegree` long; 0 when even the coarsest is too fine.
int gridStepSec(double pixelsPerDegree, double closestPx);

/// The latitude and longitude grid of a map: straight lines, since the projection is linear.
/// Nothing beyond the poles, and nothing beyond half a turn from the centre, where the map repeats
/// itself. The steps do not depend on the map's angle, so that the grid stays while the map turns.
std::vector<GridLine> gridLines(const MapProjection& projection, const Rect& view);

}  // namespace korvel
