#pragma once

#include "paint/Canvas.h"

namespace korvel {

class AirportRecord;
class MapColorCache;

/// Paints the runways with their numbers, lengths and the sides of their traffic patterns, a north
/// arrow and a scale into the area, in feet or, where `altUnit` is 1, in metres; the ground is
/// map.background. Says so when none is known.
void paintAirportPicture(Canvas& canvas, const Rect& area, const AirportRecord& airport,
                         int altUnit, const MapColorCache& colors);

}  // namespace korvel
