#pragma once

#include "paint/Canvas.h"

namespace korvel {

// Sizes of what stands on the map, all from the size of its labels.

/// The type size of map labels on a map of that size: readable at arm's length, never below 14 px.
double mapTextPx(double width, double height);

/// The type size of instruments that fill a page, which grows on with large windows.
double instrumentTextPx(double width, double height);

Font infoFont(double textPx);   ///< boxes along the edges
Font alarmFont(double textPx);  ///< what must be seen at once

/// Around the words of a box and between boxes.
double boxMargin(const Font& font);
/// From one line of a box to the next.
double lineHeight(const Font& font);
/// Of a box with one line of words.
double boxHeight(const Font& font);

}  // namespace korvel
