#pragma once

namespace korvel {

class Canvas;
struct MapFrame;

/// Compass roses around the VORs, each turned to its magnetic north; none where that is unknown.
void paintCompassRoses(const MapFrame& frame, Canvas& canvas);

/// Airports, navaids and fixes with their names.
void paintPlaces(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
