#pragma once

#include "paint/Canvas.h"

namespace korvel {

struct MapFrame;

/// The legs: passed ones dashed and faded, those ahead thin, the one that is flown wide in the
/// colour of its own, on an approach the extended center line; the course to be intercepted after
/// direct-to with one. Then the waypoints with their names and altitudes where MapFrame::planMarks
/// has them.
void paintPlan(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
