#include "ground/basemap/CoarseRelief.h"

#include <algorithm>

#include "ground/basemap/ByteCursor.h"

namespace korvel {
namespace {

constexpr std::size_t kCells = kReliefCells;

/// What a cell would be if the ground went on as it does to its west and south.
int foretold(const ReliefTile& tile, std::size_t cell) {
    const int west = cell % kCells != 0 ? tile[cell - 1] : 0;
    const int south = cell >= kCells ? tile[cell - kCells] : 0;
    const int both = cell % kCells != 0 && cell >= kCells ? tile[cell - kCells - 1] : 0;
    return west + south - both;
}

bool decodeCells(ByteCursor& cursor, ReliefTile& tile) {
    std::uint32_t expected = 0;  // cells that are as foretold, still to come
    for (std::size_t cell = 0; cell < tile.size(); ++cell) {
        int height = foretold(tile, cell);
        if (expected > 0) {
            --expected;
        } else if (const int off = cursor.difference(); off != 0) {
            if (off < -0xFFFF || off > 0xFFFF)
                return false;
            height += off;
        } else {
            expected = cursor.number();
        }
        if (!cursor.ok() || height < 0 || height > 0xFFFF)
            return false;
        tile[cell] = static_cast<std::uint16_t>(height);
    }
    return expected == 0 && cursor.atEnd();
}

}  // namespace

bool decodeRelief(std::span<const std::uint8_t> bytes, ReliefTile& tile) {
    tile.fill(0);
    if (bytes.empty())
        return true;
    ByteCursor cursor(bytes);
    if (decodeCells(cursor, tile))
        return true;
    tile.fill(0);
    return false;
}

std::string encodeRelief(const ReliefTile& tile) {
    if (std::ranges::all_of(tile, [](std::uint16_t height) { return height == 0; }))
        return {};
    std::string bytes;
    for (std::size_t cell = 0; cell < tile.size(); ++cell) {
        const int off = tile[cell] - foretold(tile, cell);
        appendDifference(bytes, off);
        if (off != 0)
            continue;
        const std::size_t first = cell;
        while (cell + 1 < tile.size() && tile[cell + 1] == foretold(tile, cell + 1))
            ++cell;
        appendNumber(bytes, static_cast<std::uint32_t>(cell - first));
    }
    return bytes;
}

}  // namespace korvel
