#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace korvel {

/// Steps of a sheet's lattice from the south-west corner of a bin.
struct LatticePoint {
    std::uint16_t x = 0;
    std::uint16_t y = 0;

    friend bool operator==(const LatticePoint&, const LatticePoint&) = default;
};

/// What one bin of a sheet holds: rings of land or water (closed without repeating the first point,
/// land on the left, the bin's edges drawn like any other line), or lines.
struct MapTile {
    std::vector<LatticePoint> points;  ///< of all parts, one after the other
    std::vector<std::uint32_t> ends;   ///< of each part in `points`, behind its last one
    std::vector<std::uint8_t> kinds;   ///< of each line; empty for rings

    [[nodiscard]] std::size_t parts() const { return ends.size(); }
    [[nodiscard]] std::span<const LatticePoint> part(std::size_t index) const {
        const std::size_t first = index == 0 ? 0 : ends[index - 1];
        return std::span(points).subspan(first, ends[index] - first);
    }
    void add(std::span<const LatticePoint> part) {
        points.insert(points.end(), part.begin(), part.end());
        ends.push_back(static_cast<std::uint32_t>(points.size()));
    }
    [[nodiscard]] std::size_t bytes() const {
        return sizeof(MapTile) + points.capacity() * sizeof(LatticePoint) +
               ends.capacity() * sizeof(std::uint32_t) + kinds.capacity();
    }
};

/// Reads a tile of a lattice of `steps`; rings have three points at least, lines two and a kind.
/// False when the bytes are not such a tile from the first to the last; then it is empty.
[[nodiscard]] bool decodeTile(std::span<const std::uint8_t> bytes, bool rings, int steps,
                              MapTile& tile);
/// The other way.
std::string encodeTile(const MapTile& tile);

}  // namespace korvel
