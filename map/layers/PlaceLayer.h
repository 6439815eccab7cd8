#pragma once

namespace korvel {

class Canvas;
struct MapFrame;

/// Compass roses around the VORs, each turned to its magnetic north; none where that is unknown.
void paintCompassRoses(const MapFrame& frame, Canvas& canvas);

/// The symbols of airports, navaids and fixes.
void paintPlaces(const MapFrame& frame, Canvas& canvas);

/// The names of MapFrame::names.
void paintNames(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
