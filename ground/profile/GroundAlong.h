#pragma once

#include <optional>
#include <vector>

#include "ground/profile/ProfileLine.h"
#include "ground/terrain/HgtTile.h"

namespace korvel {

class BaseMap;
class TerrainStore;

/// The ground around a point of a line, half a step to each side of it.
struct GroundSample {
    /// Of what was measured there, feet above sea; nothing where nothing was.
    std::optional<double> highestFt{};
    /// Whether the ground at the point itself was measured, or is the sea. What is not known may
    /// be as high as any mountain.
    bool isKnown = false;
    bool isSea = false;  ///< there is no tile, and the base map says so
};

/// One for each point of the line, from tiles that are loaded. No summit on the line is lost
/// between two points. Null for no tiles, and for no base map: then there is no sea either.
std::vector<GroundSample> groundAlong(const ProfileLine& line, const TerrainStore* terrain,
                                      BaseMap* map);

/// The tiles that the line leads over, in its order, each once.
std::vector<TileCorner> tilesAlong(const ProfileLine& line);

}  // namespace korvel
