#pragma once

#include <vector>

#include "paint/Canvas.h"

namespace korvel {

struct MapFrame;

/// The four corners of a runway on the screen, those of `from` first. Empty when both ends are the
/// same point.
std::vector<Point> runwayCorners(Point from, Point to, double width);

/// Runways to scale, with their numbers beyond the ends, so that each is read by who lands on it.
void paintRunways(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
