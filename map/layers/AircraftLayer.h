#pragma once

#include "paint/Canvas.h"

namespace korvel {

struct MapFrame;

/// The aircraft: a solid symbol along its track; a ring with a dot while the direction is unknown;
/// hollow and crossed out where the position was lost.
void paintAircraft(const MapFrame& frame, Canvas& canvas);

/// The square that the symbol covers in any direction.
Rect aircraftArea(Point center, double textPx);

}  // namespace korvel
