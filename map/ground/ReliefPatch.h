#pragma once

#include <vector>

#include "ground/basemap/BaseMap.h"
#include "map/ground/GroundGrid.h"
#include "paint/ground/HeightShading.h"

namespace korvel {

/// The coarse heights of the base map around one view, side by side whatever tiles they come from.
/// For pictures only: summits are kilometres too low.
class ReliefPatch {
 public:
    /// Reads the tiles that the box touches. A box of half the world is taken in larger cells.
    ReliefPatch(BaseMap& map, const GroundGrid::Box& box);

    /// Metres above sea, smooth from cell to cell; degrees, longitude counted on as the box's is.
    [[nodiscard]] float heightAt(double lonDeg, double latDeg) const;
    /// All heights of a raster.
    void fill(const GroundGrid& grid, HeightGrid& heights) const;

 private:
    void read(BaseMap& map);
    void smoothPolarRows();

    int cellsPerDegree_;
    int west_;   ///< cells from 180 W, where the patch begins
    int south_;  ///< cells from the south pole
    int columns_;
    int rows_;
    std::vector<float> metres_;
};

}  // namespace korvel
