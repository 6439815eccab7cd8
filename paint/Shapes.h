#pragma once

#include <array>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

// Outlines that more than one picture draws, as numbers.

/// A light aircraft from above; `angleDeg` is to the right from the screen's up. The nose comes
/// first.
std::vector<Point> aircraftOutline(Point center, double halfLength, double angleDeg);

/// The four corners of a runway on the screen, those of `from` first. Empty when both ends are the
/// same point.
std::vector<Point> runwayCorners(Point from, Point to, double width);

/// Where the corners of a bitmap come to lie, from its top left one to the right.
std::array<Point, 4> cornersOf(const Bitmap& bitmap, const BitmapPlace& place);

}  // namespace korvel
