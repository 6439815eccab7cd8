#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

/// The south-west corner of a tile of one degree, whole degrees.
struct TileCorner {
    int south = 0;  ///< -90 to 89
    int west = 0;   ///< -180 to 179

    // NOLINTNEXTLINE(modernize-use-nullptr): the checker means the comparison's own zero
    friend auto operator<=>(const TileCorner&, const TileCorner&) = default;
};

/// The tile that a point lies in; what lies on its edge belongs to the one north or east of it.
TileCorner tileOf(GeoPoint point);
/// The tiles that a box of degrees touches, eastwards from its west, which may lie beyond 180.
std::vector<TileCorner> tilesIn(double south, double west, double north, double east);
/// Of a file's name, "N47E008.SRTMGL1.hgt.zip", ".hgt.gz" or ".hgt" in letters of either size;
/// nothing for other names.
std::optional<TileCorner> tileOfName(std::string_view name);
/// "N47E008".
std::string nameOfTile(TileCorner corner);

/// Heights of one degree: posts in rows from the north, the edges shared with the neighbours.
class HgtTile {
 public:
    static constexpr std::int16_t kUnknown = -32768;

    /// Takes what a ".hgt" file holds, plain or packed by zip or gzip. Returns the message, empty
    /// on success. What is packed is never unpacked beyond the size of a tile.
    [[nodiscard]] std::string read(std::string_view bytes, TileCorner corner);

    /// Becomes a tile of that place without any heights.
    void markEmpty(TileCorner corner) {
        *this = {};
        corner_ = corner;
    }

    TileCorner corner() const { return corner_; }
    /// Posts along an edge: 1201 or 3601; 0 before a tile was read.
    [[nodiscard]] int side() const { return side_; }
    /// Metres above sea; kUnknown where nothing was measured.
    [[nodiscard]] std::int16_t post(int row, int column) const {
        return heights_[static_cast<std::size_t>(row) * static_cast<std::size_t>(side_) +
                        static_cast<std::size_t>(column)];
    }
    /// Metres between the four posts around a point of the tile; nothing where one of them is not
    /// known.
    [[nodiscard]] std::optional<double> heightM(GeoPoint point) const;

 private:
    TileCorner corner_;
    int side_ = 0;
    std::vector<std::int16_t> heights_;
};

}  // namespace korvel
