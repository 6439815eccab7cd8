#pragma once

#include <string_view>

#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// A passing message of one or more lines ("\n" between them) in a box at the lower edge of a page
/// that has no place of its own for it.
void paintMessageBox(Canvas& canvas, std::string_view words, const MapColorCache& colors);

}  // namespace korvel
