#include "map/ground/TerrainField.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

/// Remembers the last tile: the next height lies in it nearly always.
class TileReader {
 public:
    TileReader(const TerrainStore& terrain, double metres) : terrain_(terrain), metres_(metres) {}

    /// Null where nothing is loaded. `lonDeg` may be counted on beyond 180.
    const HeightPyramid* at(double lonDeg, double latDeg) {
        const auto column = static_cast<int>(std::floor(lonDeg));
        const auto row = static_cast<int>(std::floor(latDeg));
        if (column == column_ && row == row_)
            return heights_.get();
        column_ = column;
        row_ = row;
        const int west = ((column + 180) % 360 + 360) % 360 - 180;
        turnDeg_ = west - column;
        heights_ = row >= -90 && row < 90 ? terrain_.tile({row, west}).heights : nullptr;
        return heights_.get();
    }
    [[nodiscard]] HeightPyramid::Height height(double lonDeg, double latDeg) const {
        return heights_->heightAt(lonDeg + turnDeg_, latDeg, metres_);
    }

 private:
    const TerrainStore& terrain_;
    double metres_;
    int column_ = 10000;
    int row_ = 10000;
    int turnDeg_ = 0;
    std::shared_ptr<const HeightPyramid> heights_;
};

}  // namespace

TerrainField readTerrain(const TerrainStore& terrain, const GroundGrid& grid,
                         const ReliefPatch& relief, HeightGrid& heights) {
    TerrainField field;
    field.isMeasured.resize(heights.metres.size());
    field.highest.resize(heights.metres.size(), HeightPyramid::kUnknown);
    TileReader tiles(terrain, grid.metresPerPixel() * heights.step);
    for (int row = 0; row < heights.rows; ++row) {
        for (int column = 0; column < heights.columns; ++column) {
            const Point place = grid.degreesAt({static_cast<double>(column) * heights.step,
                                                static_cast<double>(row) * heights.step});
            const std::size_t i = heights.placeOf(column, row);
            HeightPyramid::Height height{.known = false};
            if (tiles.at(place.x, place.y) != nullptr) {
                height = tiles.height(place.x, place.y);
                field.highest[i] = height.highest;
            }
            field.isMeasured[i] = height.known ? 1 : 0;
            field.measured = field.measured || height.known;
            heights.metres[i] = height.known ? height.mean : relief.heightAt(place.x, place.y);
        }
    }
    return field;
}

}  // namespace korvel
