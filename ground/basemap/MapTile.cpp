#include "ground/basemap/MapTile.h"

#include "ground/basemap/ByteCursor.h"

namespace korvel {
namespace {

/// The shortest point takes two bytes.
constexpr std::size_t kLeastPointBytes = 2;

/// One part; false when it is none.
bool decodePart(ByteCursor& cursor, std::size_t least, int steps, MapTile& tile) {
    const std::size_t count = cursor.number();
    if (count < least || count > cursor.left() / kLeastPointBytes)
        return false;
    const auto limit = static_cast<std::uint32_t>(steps);
    std::uint32_t x = cursor.number();
    std::uint32_t y = cursor.number();
    for (std::size_t i = 0;; ++i) {
        // What fell below zero is large now.
        if (x > limit || y > limit || !cursor.ok())
            return false;
        tile.points.push_back({static_cast<std::uint16_t>(x), static_cast<std::uint16_t>(y)});
        if (i + 1 == count)
            break;
        x += static_cast<std::uint32_t>(cursor.difference());
        y += static_cast<std::uint32_t>(cursor.difference());
    }
    tile.ends.push_back(static_cast<std::uint32_t>(tile.points.size()));
    return true;
}

bool decodeParts(ByteCursor& cursor, bool rings, int steps, MapTile& tile) {
    const std::size_t parts = cursor.number();
    if (parts > cursor.left() / kLeastPointBytes)
        return false;
    tile.ends.reserve(parts);
    tile.points.reserve(cursor.left() / kLeastPointBytes);
    for (std::size_t i = 0; i < parts; ++i) {
        if (!rings)
            tile.kinds.push_back(cursor.byte());
        if (!decodePart(cursor, rings ? 3 : 2, steps, tile))
            return false;
    }
    return cursor.ok() && cursor.atEnd();
}

}  // namespace

bool decodeTile(std::span<const std::uint8_t> bytes, bool rings, int steps, MapTile& tile) {
    tile = {};
    ByteCursor cursor(bytes);
    if (decodeParts(cursor, rings, steps, tile))
        return true;
    tile = {};
    return false;
}

std::string encodeTile(const MapTile& tile) {
    std::string bytes;
    appendNumber(bytes, static_cast<std::uint32_t>(tile.parts()));
    for (std::size_t i = 0; i < tile.parts(); ++i) {
        if (!tile.kinds.empty())
            appendByte(bytes, tile.kinds[i]);
        const auto points = tile.part(i);
        appendNumber(bytes, static_cast<std::uint32_t>(points.size()));
        appendNumber(bytes, points.front().x);
        appendNumber(bytes, points.front().y);
        for (std::size_t k = 1; k < points.size(); ++k) {
            appendDifference(bytes, points[k].x - points[k - 1].x);
            appendDifference(bytes, points[k].y - points[k - 1].y);
        }
    }
    return bytes;
}

}  // namespace korvel
