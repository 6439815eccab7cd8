#pragma once

#include <string_view>

#include "display/Canvas.h"

namespace korvel {

class MapColorCache;

/// The flag of an instrument that has nothing to show: a word in a box with a thick frame in the
/// colour of danger. Returns the box.
Rect paintWarningFlag(Canvas& canvas, Point center, std::string_view word, double textPx,
                      const MapColorCache& colors);

/// Crosses an instrument out.
void paintWarningCross(Canvas& canvas, const Rect& area, const MapColorCache& colors);

}  // namespace korvel
