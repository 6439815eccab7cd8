#include "map/ground/GroundTiles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace korvel {
namespace {

/// Where a bin's lattice lies: whole steps from 180 W and the south pole, so that what two bins
/// share comes to the same numbers.
class BinGrid {
 public:
    BinGrid(const GroundGrid& grid, const MapSheet& sheet, int column, int row)
        : grid_(grid), sheet_(sheet), x_(column * sheet.steps()), y_(row * sheet.steps()) {}

    [[nodiscard]] Point at(int x, int y) const {
        return grid_.toRaster(static_cast<double>(x_ + x) / sheet_.stepsPerDegree - 180,
                              static_cast<double>(y_ + y) / sheet_.stepsPerDegree - 90);
    }
    void project(std::span<const LatticePoint> part, std::vector<Point>& points) const {
        points.resize(part.size());
        std::ranges::transform(part, points.begin(),
                               [this](LatticePoint p) { return at(p.x, p.y); });
    }

 private:
    const GroundGrid& grid_;
    const MapSheet& sheet_;
    int x_;
    int y_;
};

}  // namespace

void forBins(const MapSheet& sheet, const GroundGrid::Box& box,
             const std::function<void(int column, int row, int bin)>& take) {
    const auto line = [&sheet](double degrees) {
        return static_cast<int>(std::floor(degrees / sheet.binDegrees));
    };
    const int columns = sheet.columns();
    const int lastRow = std::min(line(box.north + 90), sheet.rows() - 1);
    for (int row = std::max(line(box.south + 90), 0); row <= lastRow; ++row) {
        for (int column = line(box.west + 180); column <= line(box.east + 180); ++column) {
            const int place = (column % columns + columns) % columns;
            take(column, row, row * columns + place);
        }
    }
}

void forLandRings(BaseMap& map, const GroundGrid& grid, const GroundGrid::Box& box,
                  double metresPerPixel, const RasterPart& take) {
    const auto place = map.file().sheetFor(SheetKind::Land, metresPerPixel);
    if (!place)
        return;
    const MapSheet& sheet = map.file().sheets()[*place];
    const int end = sheet.steps();
    std::vector<Point> points;
    forBins(sheet, box, [&](int column, int row, int bin) {
        const BinGrid lattice(grid, sheet, column, row);
        const BinState state = map.file().state(sheet, bin);
        if (state == BinState::Land) {
            const std::array corners{lattice.at(0, 0), lattice.at(end, 0), lattice.at(end, end),
                                     lattice.at(0, end)};
            take(corners, 0);
        }
        if (state != BinState::Mixed)
            return;
        const auto tile = map.tile(*place, bin);
        for (std::size_t i = 0; i < tile->parts(); ++i) {
            lattice.project(tile->part(i), points);
            take(points, 0);
        }
    });
}

void forLines(BaseMap& map, SheetKind kind, const GroundGrid& grid, const GroundGrid::Box& box,
              double metresPerPixel, const RasterPart& take) {
    const auto place = map.file().sheetFor(kind, metresPerPixel);
    if (!place)
        return;
    const MapSheet& sheet = map.file().sheets()[*place];
    std::vector<Point> points;
    forBins(sheet, box, [&](int column, int row, int bin) {
        if (map.file().state(sheet, bin) != BinState::Mixed)
            return;
        const BinGrid lattice(grid, sheet, column, row);
        const auto tile = map.tile(*place, bin);
        for (std::size_t i = 0; i < tile->parts(); ++i) {
            lattice.project(tile->part(i), points);
            take(points, tile->kinds[i]);
        }
    });
}

}  // namespace korvel
