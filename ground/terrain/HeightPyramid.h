#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "geo/GeoPoint.h"
#include "ground/terrain/HgtTile.h"

namespace korvel {

/// A tile of heights in ever coarser grids, each half as fine as the one before: the mean around
/// each post for pictures, and the highest for whatever warns of the ground, which no coarser grid
/// makes lower.
class HeightPyramid {
 public:
    static constexpr std::int16_t kUnknown = HgtTile::kUnknown;

    /// Of the tile's grids those whose posts stand no closer than `metres`, and at least one.
    HeightPyramid(const HgtTile& tile, double metres);

    [[nodiscard]] TileCorner corner() const { return corner_; }
    /// Metres between the posts of the finest grid that it has, from south to north.
    [[nodiscard]] double finestM() const { return grids_.front().metres; }
    /// Whether the tile has no finer grid that serves what is wanted every so many metres.
    [[nodiscard]] bool isFineEnough(double metres) const { return isWhole_ || finestM() <= metres; }
    [[nodiscard]] std::size_t bytes() const;
    /// Whether some of the tile was not measured.
    [[nodiscard]] bool hasVoids() const { return hasVoids_; }
    /// What a tile of one arc second would take.
    static std::size_t mostBytes(double metres);

    /// Both as looked up between the posts, metres above sea.
    struct Height {
        float mean = 0;
        float highest = 0;  ///< of the posts around, kUnknown where none is known
        bool known = true;  ///< most of what lies there was measured
    };
    /// In the grid whose posts stand about so far from each other; degrees inside the tile.
    [[nodiscard]] Height heightAt(double lonDeg, double latDeg, double metres) const;

    /// The highest post in a box of degrees, in the grid of about so many metres; nothing where
    /// none is known. What lies beyond the tile counts for nothing.
    [[nodiscard]] std::optional<float> highestIn(double south, double west, double north,
                                                 double east, double metres) const;

 private:
    struct Grid {
        int side = 0;
        double metres = 0;
        std::vector<std::int16_t> mean;     ///< unknown where half of the posts are
        std::vector<std::int16_t> highest;  ///< unknown where all of them are; empty: as the mean
        [[nodiscard]] std::size_t placeOf(int row, int column) const {
            return static_cast<std::size_t>(row) * static_cast<std::size_t>(side) +
                   static_cast<std::size_t>(column);
        }
        [[nodiscard]] std::int16_t highestAt(std::size_t place) const {
            return highest.empty() ? mean[place] : highest[place];
        }
    };

    static Grid halved(const Grid& fine);
    [[nodiscard]] const Grid& gridFor(double metres) const;

    TileCorner corner_;
    bool isWhole_ = true;  ///< the first grid is the tile's own
    bool hasVoids_ = false;
    std::vector<Grid> grids_;  ///< the finest first
};

}  // namespace korvel
