#pragma once

namespace korvel {

class Canvas;
struct MapFrame;

/// North arrow, range, scale bar, notes, the passing message and the alarm of a lost position.
void paintFurniture(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
