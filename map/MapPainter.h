#pragma once

// The one table of the map's layers in drawing order, and the painter that goes through it.

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "map/layers/Layer.h"

namespace korvel {

/// Who finds room for labels first. What is claimed earlier wins; within a turn the drawing order
/// decides.
enum class Turn : std::uint8_t {
    Fixed,  ///< stands where it stands: the boxes at the edges, the aircraft
    Ruler,
    Plan,  ///< no name on the map is more important than those of the plan
    Approach,
    Rings,
    Ground,  ///< places and the like
    Grid,
};

/// One thing that is drawn of the map at its place in the drawing order: a layer, or the words of
/// one that has them apart.
struct MapLayer {
    std::string_view name;
    int fromRangeNm;  ///< smallest range at which it shows
    int toRangeNm;    ///< largest range at which it shows
    Turn turn;        ///< in which it is laid out
    std::shared_ptr<Layer> (*make)(const MapContent& content);
    void (Layer::*paint)(Canvas& canvas) const;
};

/// All layers in drawing order, the ground first: the one table of what shows when.
std::span<const MapLayer> mapLayers();

/// Lays out and paints the layers that show at the range.
void paintMap(Canvas& canvas, const MapContent& content);

}  // namespace korvel
