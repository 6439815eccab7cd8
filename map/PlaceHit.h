#pragma once

#include <vector>

#include "cockpit/PlaceSet.h"
#include "map/MapViewport.h"
#include "paint/Canvas.h"

namespace korvel {

/// From a point to the nearest one of a line, pixels.
double distanceToLine(Point point, Point from, Point to);

/// The places under a finger, the one that is most probably meant first: of those that are about
/// equally near the most important one. An airport is touched by its runways too. Only places that
/// show at this range, whether there was room for them or not. The pointers lead into the set.
std::vector<const MapPlace*> placesAt(const PlaceSet& set, const MapProjection& projection,
                                      int rangeNm, Point finger, double radiusPx);

}  // namespace korvel
