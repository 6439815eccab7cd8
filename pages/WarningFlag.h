#pragma once

#include <string_view>

#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// The flag of an instrument that has nothing to show: a word in a box with a thick frame in the
/// colour of danger.
void paintWarningFlag(Canvas& canvas, Point center, std::string_view word, double textPx,
                      const MapColorCache& colors);

/// The box of that flag.
Rect warningFlagBox(const TextMeasure& texts, Point center, std::string_view word, double textPx);

/// Crosses an instrument out.
void paintWarningCross(Canvas& canvas, const Rect& area, const MapColorCache& colors);

}  // namespace korvel
