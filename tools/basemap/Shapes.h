#pragma once

// What the sources' lines are while a base map is made of them.

#include <cstdint>
#include <vector>

#include "ground/basemap/MapTile.h"

namespace korvel::making {

/// Where a bin ends in the sources' coordinates, which count from its south-west corner.
inline constexpr int kBinEnd = 65535;

struct RawPoint {
    int x = 0;
    int y = 0;

    friend bool operator==(const RawPoint&, const RawPoint&) = default;
};

using RawLine = std::vector<RawPoint>;

/// A piece of shore in a bin, land on its left: it comes in on one side and leaves on another
/// (0 south, 1 east, 2 north, 3 west), or lies inside and is closed.
struct ShoreChain {
    static constexpr int kInside = 4;

    RawLine points;
    int entry = kInside;
    int exit = kInside;
    int level = 1;       ///< 1 land, 2 lake, 3 island in it, 4 pond in that
    double areaKm2 = 0;  ///< of all that the shore encloses

    [[nodiscard]] bool isClosed() const {
        return entry == kInside || (entry == exit && points.front() == points.back());
    }
};

struct ShoreBin {
    std::vector<ShoreChain> chains;
    int cornerLevel = 0;  ///< what the bin's corner lies in; odd is land
};

struct KindLine {
    int kind = 0;
    RawLine points;
};
using LineBin = std::vector<KindLine>;

/// All bins of the world, rows from the south, columns from 180 W.
template <class Bin>
struct World {
    int binDegrees = 1;
    std::vector<Bin> bins;
};

}  // namespace korvel::making
