#pragma once

#include <vector>

#include "ground/basemap/BaseMapLayout.h"
#include "tools/basemap/Shapes.h"

namespace korvel::making {

/// Closes the shores of a bin along its edges: land stays on the left, each ring without its first
/// point again at the end. `background` says whether a bin that no shore crosses is land; the frame
/// is a ring of its own then.
std::vector<RawLine> closedRings(const std::vector<ShoreChain>& chains, bool background);

/// A bin of a sheet: its rings on the lattice, without those that vanish there, and its state.
struct LandBin {
    BinState state = BinState::Sea;
    MapTile tile;
};

/// What the shores of a bin are on a lattice. Shores around less than `leastKm2` are left out, and
/// points within `toleranceM` of the line.
LandBin makeLandBin(const ShoreBin& bin, const MapSheet& sheet, int row, double leastKm2);

/// The lines of those kinds on the lattice; empty when there are none.
MapTile makeLineBin(const LineBin& bin, const MapSheet& sheet, int row, int fromKind, int toKind);

}  // namespace korvel::making
