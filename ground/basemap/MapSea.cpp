#include "ground/basemap/MapSea.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr int kRows = kReliefRows * kReliefCells;
constexpr int kColumns = kReliefColumns * kReliefCells;
/// A cell is nine kilometres wide and holds its shores, too: a fjord's are higher than the sea.
constexpr int kHighestShoreSteps = 4;
/// So far from a cell of the sea its arms may reach.
constexpr int kArmCells = 2;
/// A lake whose bed lies below the sea's level (Lake Ontario) is made of cells of height 0 as well,
/// about 300 of them. What has fewer is not believed to be a sea.
constexpr std::size_t kFewestSeaCells = 500;
constexpr int kSides = 9;  // of a cell, itself among them

int cellOf(double degrees, int count) {
    return std::clamp(static_cast<int>(degrees * kReliefCellsPerDegree), 0, count - 1);
}

}  // namespace

MapSea::MapSea(BaseMap* map) : map_(map) {
    if (map_ != nullptr && map_->isOpen() && map_->file().hasRelief())
        coast_ = map_->file().sheetFor(SheetKind::Land, 0);
}

bool MapSea::isAt(GeoPoint point) {
    if (!coast_ || map_->isLand(*coast_, point))
        return false;
    const int row = cellOf(point.lat * kRadToDeg + 90, kRows);
    const int column = cellOf(point.lon * kRadToDeg + 180, kColumns);
    if (heightStepsAt(row, column) > kHighestShoreSteps)
        return false;
    for (int up = -kArmCells; up <= kArmCells; ++up)
        for (int right = -kArmCells; right <= kArmCells; ++right)
            if (isPartOfSea(row + up, column + right))
                return true;
    return false;
}

/// Whether so many cells of height 0 hang together with this one that they are a sea. Those that
/// were met on the way count as a lake's until it is known to be none.
bool MapSea::isPartOfSea(int row, int column) {
    if (heightStepsAt(row, column) != 0)
        return false;
    if (const Water known = waterAt(row, column); known != Water::Unknown)
        return known == Water::Sea;
    std::vector<std::pair<int, int>> cells{{row, column}};
    waterAt(row, column) = Water::Lake;
    bool isSea = false;
    for (std::size_t next = 0; next < cells.size() && !isSea; ++next)
        for (int side = 0; side < kSides; ++side) {
            const int r = cells[next].first + side / 3 - 1;
            const int c = cells[next].second + side % 3 - 1;
            if (heightStepsAt(r, c) != 0)
                continue;
            Water& water = waterAt(r, c);
            isSea = isSea || water == Water::Sea || cells.size() >= kFewestSeaCells;
            if (std::exchange(water, water == Water::Unknown ? Water::Lake : water) ==
                Water::Unknown)
                cells.emplace_back(r, c);
        }
    if (isSea)
        for (const auto& [r, c] : cells)
            waterAt(r, c) = Water::Sea;
    return isSea;
}

MapSea::Cell MapSea::cellAt(int row, int column) {
    row = std::clamp(row, 0, kRows - 1);
    column = (column % kColumns + kColumns) % kColumns;
    const int tile = row / kReliefCells * kReliefColumns + column / kReliefCells;
    if (std::exchange(lastTile_, tile) != tile) {
        last_ = &tiles_[tile];
        if (last_->heights == nullptr) {
            last_->heights = map_->relief(tile);
            last_->water.resize(last_->heights->size());
        }
    }
    return {last_,
            static_cast<std::size_t>(row % kReliefCells * kReliefCells + column % kReliefCells)};
}

int MapSea::heightStepsAt(int row, int column) {
    const Cell cell = cellAt(row, column);
    return (*cell.tile->heights)[cell.place];
}

MapSea::Water& MapSea::waterAt(int row, int column) {
    const Cell cell = cellAt(row, column);
    return cell.tile->water[cell.place];
}

}  // namespace korvel
