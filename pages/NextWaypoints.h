#pragma once

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// The plan's waypoints behind the one that is flown to, how far they are along the plan and when
/// they are reached: as many as the room takes, three at most, and nothing while something else
/// than the plan is flown.
void paintNextWaypoints(Canvas& canvas, const CockpitData& data, const Rect& room, double textPx,
                        const MapColorCache& colors);

}  // namespace korvel
