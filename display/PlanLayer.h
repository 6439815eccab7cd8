#pragma once

#include "display/Canvas.h"

namespace korvel {

class LabelSpace;
class MapProjection;
struct CockpitData;
struct MapFrame;

/// The legs: passed ones dashed and faded, those ahead thin, the one that is flown wide in the
/// colour of its own, on an approach the extended center line; the course to be intercepted after
/// direct-to with one. Then the waypoints with their names and altitudes where MapFrame::planMarks
/// has them.
void paintPlan(const MapFrame& frame, Canvas& canvas);

/// Takes the room of the legs that are flown or ahead: no name is readable under them.
void reservePlanLines(const CockpitData& data, const MapProjection& projection, const Rect& view,
                      LabelSpace& lines);

}  // namespace korvel
