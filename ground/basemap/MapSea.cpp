#include "ground/basemap/MapSea.h"

#include <algorithm>
#include <set>
#include <tuple>
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

/// Whether so many cells of height 0 hang together with this one that they are a sea.
bool MapSea::isPartOfSea(int row, int column) {
    if (heightStepsAt(row, column) != 0)
        return false;
    std::vector<std::pair<int, int>> cells{cellAt(row, column)};
    std::set<std::pair<int, int>> seen(cells.begin(), cells.end());
    if (const auto known = isSea_.find(cells.front()); known != isSea_.end())
        return known->second;
    for (std::size_t next = 0; next < cells.size() && cells.size() < kFewestSeaCells; ++next)
        for (int side = 0; side < 9; ++side) {
            const auto [r, c] = cells[next];
            const auto cell = cellAt(r + side / 3 - 1, c + side % 3 - 1);
            if (heightStepsAt(cell.first, cell.second) == 0 && seen.insert(cell).second)
                cells.push_back(cell);
        }
    for (const auto& cell : cells)
        isSea_[cell] = cells.size() >= kFewestSeaCells;
    return isSea_[cells.front()];
}

/// Beyond a pole the row at it; across the map's seam its other side.
std::pair<int, int> MapSea::cellAt(int row, int column) {
    return {std::clamp(row, 0, kRows - 1), (column + kColumns) % kColumns};
}

int MapSea::heightStepsAt(int row, int column) {
    std::tie(row, column) = cellAt(row, column);
    const auto tile = map_->relief(row / kReliefCells * kReliefColumns + column / kReliefCells);
    const int place = row % kReliefCells * kReliefCells + column % kReliefCells;
    return (*tile)[static_cast<std::size_t>(place)];
}

}  // namespace korvel
