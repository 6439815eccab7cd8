#pragma once

#include <map>
#include <optional>
#include <utility>

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
    bool isPartOfSea(int row, int column);
    int heightStepsAt(int row, int column);
    static std::pair<int, int> cellAt(int row, int column);

    BaseMap* map_;
    std::optional<std::size_t> coast_;           ///< the finest sheet of land: others lack islands
    std::map<std::pair<int, int>, bool> isSea_;  ///< what was found of cells, row and column
};

}  // namespace korvel
