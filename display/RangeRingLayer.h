#pragma once

namespace korvel {

class Canvas;
struct MapFrame;

/// Circles around the aircraft at the display range and at half of it, each with its distance.
void paintRangeRings(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
