#include "ground/basemap/MapSea.h"

#include <algorithm>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr int kRows = kReliefRows * kReliefCells;
constexpr int kColumns = kReliefColumns * kReliefCells;
/// A cell is nine kilometres wide and holds its shores, too: a fjord's are higher than the sea.
constexpr int kHighestShoreSteps = 4;
/// So far from a cell of the sea its arms may reach.
constexpr int kArmCells = 2;

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
            if (heightStepsAt(row + up, column + right) == 0)
                return true;
    return false;
}

/// Beyond a pole the row at it; across the map's seam its other side.
int MapSea::heightStepsAt(int row, int column) {
    row = std::clamp(row, 0, kRows - 1);
    column = (column + kColumns) % kColumns;
    const auto tile = map_->relief(row / kReliefCells * kReliefColumns + column / kReliefCells);
    const int place = row % kReliefCells * kReliefCells + column % kReliefCells;
    return (*tile)[static_cast<std::size_t>(place)];
}

}  // namespace korvel
