#pragma once

#include <string_view>

#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// A passing message of one or more lines ("\n" between them) at the lower edge of a page that has
/// no place of its own for it: in a box as wide as its words or, over a table, in a band across the
/// page that is at least so high, because a row that shows half a figure would be read wrong.
void paintMessageBox(Canvas& canvas, std::string_view words, const MapColorCache& colors,
                     double bandHeight = 0);

}  // namespace korvel
