#pragma once

#include <functional>
#include <span>

#include "ground/basemap/BaseMap.h"
#include "map/ground/GroundGrid.h"

namespace korvel {

/// Calls `take` with each bin of a sheet that the box touches: its column, counted on beyond the
/// 180th meridian, its row, and its place in the sheet.
void forBins(const MapSheet& sheet, const GroundGrid::Box& box,
             const std::function<void(int column, int row, int bin)>& take);

/// One part of a tile on the raster. The points are valid during the call only.
using RasterPart = std::function<void(std::span<const Point> points, int kind)>;

/// The rings of land and water in the box, land on their left, in the sheet that suits the map.
void forLandRings(BaseMap& map, const GroundGrid& grid, const GroundGrid::Box& box,
                  double metresPerPixel, const RasterPart& take);
/// Rivers or borders.
void forLines(BaseMap& map, SheetKind kind, const GroundGrid& grid, const GroundGrid::Box& box,
              double metresPerPixel, const RasterPart& take);

}  // namespace korvel
