#pragma once

namespace korvel {

class Canvas;
struct MapFrame;

/// Runways to scale, with their numbers beyond the ends, so that each is read by who lands on it.
void paintRunways(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
