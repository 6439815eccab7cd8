#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "geo/GeoPoint.h"
#include "ground/basemap/BaseMap.h"

namespace korvel {

/// The sea of a base map, where the height is 0 without a tile to say so. A lake is no land either,
/// but lies as high as its shores: there the map's coarse heights tell, and without them there is
/// no sea. One thread at a time.
class MapSea {
 public:
    /// Null, or a map that is not open, has none. The map outlives this.
    explicit MapSea(BaseMap* map);

    bool isAt(GeoPoint point);

 private:
    enum class Water : std::uint8_t { Unknown, Sea, Lake };
    /// A tile of coarse heights, and what was found of its cells.
    struct Tile {
        std::shared_ptr<const ReliefTile> heights;
        std::vector<Water> water;
    };
    struct Cell {
        Tile* tile;
        std::size_t place;
    };

    bool isPartOfSea(int row, int column);
    int heightStepsAt(int row, int column);
    Water& waterAt(int row, int column);
    /// Beyond a pole the row at it; across the map's seam its other side.
    Cell cellAt(int row, int column);

    BaseMap* map_;
    std::optional<std::size_t> coast_;  ///< the finest sheet of land: others lack islands
    std::unordered_map<int, Tile> tiles_;
    int lastTile_ = -1;
    Tile* last_ = nullptr;  ///< that one: the next cell is mostly in it, too
};

}  // namespace korvel
