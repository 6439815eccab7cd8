#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "ground/basemap/BaseMapLayout.h"

namespace korvel {

/// Heights of a tile's cells in steps of 20 m, rows from the south, columns from the west; the sea
/// and what lies below it is 0. A picture's only: summits are kilometres too low.
using ReliefTile = std::array<std::uint16_t, static_cast<std::size_t>(kReliefCells) * kReliefCells>;

/// False when the bytes are not a tile from the first to the last; then all heights are 0. No bytes
/// are a tile of sea.
[[nodiscard]] bool decodeRelief(std::span<const std::uint8_t> bytes, ReliefTile& tile);
/// The other way; empty for a tile of sea.
std::string encodeRelief(const ReliefTile& tile);

}  // namespace korvel
