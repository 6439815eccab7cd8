#pragma once

#include <cstdint>
#include <vector>

#include "ground/terrain/TerrainStore.h"
#include "map/ground/GroundGrid.h"
#include "map/ground/ReliefPatch.h"
#include "paint/ground/HeightShading.h"

namespace korvel {

/// What the tiles of heights say at each height of a grid.
struct TerrainField {
    std::vector<std::uint8_t> isMeasured;  ///< 0 where no tile knows
    std::vector<float> highest;  ///< metres, of the ground around; HeightPyramid::kUnknown for none
    bool measured = false;       ///< anywhere
};

/// Fills the grid from the tiles that are loaded, and from the coarse relief where none is.
TerrainField readTerrain(const TerrainStore& terrain, const GroundGrid& grid,
                         const ReliefPatch& relief, HeightGrid& heights);

}  // namespace korvel
