#pragma once

#include <functional>
#include <span>

#include "geo/GeoPoint.h"
#include "paint/Canvas.h"

namespace korvel {

class MapProjection;

/// Calls `piece` for each connected part inside the view of the great circle from one point to
/// another, as the map shows it: bent where the way bends by more than half a pixel, and without
/// the jump where it leaves the map on one side and comes back on the other. The points are valid
/// during the call only.
void traceGreatCircle(const MapProjection& projection, GeoPoint from, GeoPoint to, const Rect& view,
                      const std::function<void(std::span<const Point>)>& piece);

}  // namespace korvel
