#pragma once

// What the map's symbols mean, drawn by what draws them on the map.

#include <cstddef>

#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Rows of the legend.
std::size_t mapLegendRows();

/// Paints all rows, one below the other, over the whole canvas: each symbol at the left in the
/// colours of the scheme, a bit larger than on a map with type of `textPx`, its words beside it.
void paintMapLegend(Canvas& canvas, const MapColorCache& colors, double textPx);

}  // namespace korvel
