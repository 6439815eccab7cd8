#include "map/ground/ReliefPatch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kMostCells = 1.5e6;
constexpr int kAround = 3;  ///< cells beside the box that the smoothing looks at
constexpr double kPolarDeg = 70;

/// A tile at a time; cells outside the world are those at its edge.
class ReliefCells {
 public:
    explicit ReliefCells(BaseMap& map) : map_(map) {}

    float metres(int column, int row) {
        constexpr int kAcross = 360 * kReliefCellsPerDegree;
        column = (column % kAcross + kAcross) % kAcross;
        row = std::clamp(row, 0, 180 * kReliefCellsPerDegree - 1);
        const int tile = row / kReliefCells * kReliefColumns + column / kReliefCells;
        if (tile != tile_) {
            tile_ = tile;
            heights_ = map_.relief(tile);
        }
        return static_cast<float>((*heights_)[static_cast<unsigned>(
                                      row % kReliefCells * kReliefCells + column % kReliefCells)] *
                                  kReliefStepM);
    }

 private:
    BaseMap& map_;
    int tile_ = -1;
    std::shared_ptr<const ReliefTile> heights_;
};

/// The cubic B-spline's weights of four cells for a place between the middle two.
std::array<float, 4> weightsAt(float t) {
    const float rest = 1 - t;
    const float last = t * t * t / 6;
    const float first = rest * rest * rest / 6;
    const float second = (3 * t * t * t - 6 * t * t + 4) / 6;
    return {first, second, 1 - first - second - last, last};
}

}  // namespace

ReliefPatch::ReliefPatch(BaseMap& map, const GroundGrid::Box& box)
    : cellsPerDegree_(kReliefCellsPerDegree) {
    const double area = (box.east - box.west) * (box.north - box.south);
    while (cellsPerDegree_ > 3 && area * cellsPerDegree_ * cellsPerDegree_ > kMostCells)
        cellsPerDegree_ /= 2;
    const auto cell = [this](double degrees) {
        return static_cast<int>(std::floor(degrees * cellsPerDegree_));
    };
    west_ = cell(box.west + 180) - kAround;
    south_ = cell(box.south + 90) - kAround;
    columns_ = cell(box.east + 180) + kAround + 1 - west_;
    rows_ = cell(box.north + 90) + kAround + 1 - south_;
    metres_.resize(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_));
    read(map);
    smoothPolarRows();
}

void ReliefPatch::read(BaseMap& map) {
    ReliefCells cells(map);
    const int each = kReliefCellsPerDegree / cellsPerDegree_;
    auto to = metres_.begin();
    for (int row = south_; row < south_ + rows_; ++row) {
        for (int column = west_; column < west_ + columns_; ++column) {
            float sum = 0;
            for (int y = 0; y < each; ++y)
                for (int x = 0; x < each; ++x)
                    sum += cells.metres(column * each + x, row * each + y);
            *to++ = sum / static_cast<float>(each * each);
        }
    }
}

/// Near the poles cells are narrow and high, which would look like combs.
void ReliefPatch::smoothPolarRows() {
    std::vector<float> smooth(static_cast<std::size_t>(columns_));
    for (int row = 0; row < rows_; ++row) {
        const double lat = (south_ + row + 0.5) / cellsPerDegree_ - 90;
        if (std::abs(lat) < kPolarDeg || std::abs(lat) >= 90)
            continue;
        const int reach =
            std::min(static_cast<int>(std::lround(0.5 / std::cos(lat * kDegToRad))), columns_ / 2);
        float* const line = metres_.data() + static_cast<std::ptrdiff_t>(row) * columns_;
        for (int column = 0; column < columns_; ++column) {
            const int first = std::max(column - reach, 0);
            const int last = std::min(column + reach, columns_ - 1);
            float sum = 0;
            for (int i = first; i <= last; ++i)
                sum += line[i];
            smooth[static_cast<std::size_t>(column)] = sum / static_cast<float>(last - first + 1);
        }
        std::ranges::copy(smooth, line);
    }
}

float ReliefPatch::heightAt(double lonDeg, double latDeg) const {
    // Heights are those of the cells' middles.
    const double x =
        std::clamp((lonDeg + 180) * cellsPerDegree_ - west_ - 0.5, 1.0, columns_ - 3.0);
    const double y = std::clamp((latDeg + 90) * cellsPerDegree_ - south_ - 0.5, 1.0, rows_ - 3.0);
    const int column = static_cast<int>(x);
    const int row = static_cast<int>(y);
    const std::array<float, 4> across = weightsAt(static_cast<float>(x - column));
    const std::array<float, 4> up = weightsAt(static_cast<float>(y - row));
    const float* line =
        metres_.data() + static_cast<std::ptrdiff_t>(row - 1) * columns_ + column - 1;
    float sum = 0;
    for (const float weight : up) {
        sum += weight * (line[0] * across[0] + line[1] * across[1] + line[2] * across[2] +
                         line[3] * across[3]);
        line += columns_;
    }
    return sum;
}

void ReliefPatch::fill(const GroundGrid& grid, HeightGrid& heights) const {
    for (int row = 0; row < heights.rows; ++row) {
        for (int column = 0; column < heights.columns; ++column) {
            const Point place = grid.degreesAt({static_cast<double>(column) * heights.step,
                                                static_cast<double>(row) * heights.step});
            heights.at(column, row) = heightAt(place.x, place.y);
        }
    }
}

}  // namespace korvel
