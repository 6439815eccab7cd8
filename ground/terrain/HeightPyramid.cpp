#include "ground/terrain/HeightPyramid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace korvel {
namespace {

constexpr double kMetresPerDegree = 60 * 1852;
constexpr int kFinestSide = 3601;
/// What weighs a post's neighbours in the next grid, by their distance in one direction.
constexpr std::array kWeights{1, 2, 1};

double spacingOf(int side) { return kMetresPerDegree / (side - 1); }

/// A grid can be halved while its edges stay posts.
bool canBeHalved(int side) { return (side - 1) % 2 == 0 && side > 3; }

}  // namespace

HeightPyramid::HeightPyramid(const HgtTile& tile, double metres) : corner_(tile.corner()) {
    Grid grid{.side = tile.side(), .metres = spacingOf(tile.side()), .mean = {}, .highest = {}};
    grid.mean.reserve(static_cast<std::size_t>(grid.side) * static_cast<std::size_t>(grid.side));
    for (int row = 0; row < grid.side; ++row)
        for (int column = 0; column < grid.side; ++column)
            grid.mean.push_back(tile.post(row, column));
    hasVoids_ = std::ranges::find(grid.mean, kUnknown) != grid.mean.end();
    for (; grid.metres * 2 <= metres && canBeHalved(grid.side); isWhole_ = false)
        grid = halved(grid);
    grids_.push_back(std::move(grid));
    while (canBeHalved(grids_.back().side))
        grids_.push_back(halved(grids_.back()));
}

HeightPyramid::Grid HeightPyramid::halved(const Grid& fine) {
    Grid coarse{
        .side = (fine.side - 1) / 2 + 1, .metres = fine.metres * 2, .mean = {}, .highest = {}};
    const auto posts =
        static_cast<std::size_t>(coarse.side) * static_cast<std::size_t>(coarse.side);
    coarse.mean.reserve(posts);
    coarse.highest.reserve(posts);
    for (int row = 0; row < fine.side; row += 2) {
        for (int column = 0; column < fine.side; column += 2) {
            int sum = 0;
            int known = 0;
            int all = 0;
            std::int16_t highest = kUnknown;
            for (int y = std::max(row - 1, 0); y <= std::min(row + 1, fine.side - 1); ++y) {
                for (int x = std::max(column - 1, 0); x <= std::min(column + 1, fine.side - 1);
                     ++x) {
                    const std::size_t place = fine.placeOf(y, x);
                    const int weight = kWeights.at(static_cast<unsigned>(y - row + 1)) *
                                       kWeights.at(static_cast<unsigned>(x - column + 1));
                    all += weight;
                    highest = std::max(highest, fine.highestAt(place));
                    if (fine.mean[place] == kUnknown)
                        continue;
                    sum += weight * fine.mean[place];
                    known += weight;
                }
            }
            coarse.mean.push_back(known * 2 <= all ? kUnknown
                                                   : static_cast<std::int16_t>(sum / known));
            coarse.highest.push_back(highest);
        }
    }
    return coarse;
}

std::size_t HeightPyramid::bytes() const {
    std::size_t sum = 0;
    for (const Grid& grid : grids_)
        sum += (grid.mean.size() + grid.highest.size()) * sizeof(std::int16_t);
    return sum;
}

std::size_t HeightPyramid::mostBytes(double metres) {
    std::size_t sum = 0;
    for (int side = kFinestSide;; side = (side - 1) / 2 + 1) {
        const bool last = !canBeHalved(side);
        if (last || spacingOf(side) * 2 > metres)
            sum += static_cast<std::size_t>(side) * static_cast<std::size_t>(side) *
                   static_cast<std::size_t>(side == kFinestSide ? 1 : 2) * sizeof(std::int16_t);
        if (last)
            return sum;
    }
}

/// The coarsest grid that is not coarser than asked, else the finest.
const HeightPyramid::Grid& HeightPyramid::gridFor(double metres) const {
    const Grid* found = &grids_.front();
    for (const Grid& grid : grids_)
        if (grid.metres <= metres)
            found = &grid;
    return *found;
}

HeightPyramid::Height HeightPyramid::heightAt(double lonDeg, double latDeg, double metres) const {
    const Grid& grid = gridFor(metres);
    const double x = std::clamp((lonDeg - corner_.west) * (grid.side - 1), 0.0, grid.side - 1.0);
    const double y =
        std::clamp((corner_.south + 1 - latDeg) * (grid.side - 1), 0.0, grid.side - 1.0);
    const int column = std::min(static_cast<int>(x), grid.side - 2);
    const int row = std::min(static_cast<int>(y), grid.side - 2);
    const auto right = static_cast<float>(x - column);
    const auto down = static_cast<float>(y - row);
    const std::array<float, 4> weights{(1 - right) * (1 - down), right * (1 - down),
                                       (1 - right) * down, right * down};
    const std::size_t above = grid.placeOf(row, column);
    const std::size_t below = grid.placeOf(row + 1, column);
    const std::array<std::size_t, 4> posts{above, above + 1, below, below + 1};
    Height height{.mean = 0, .highest = kUnknown, .known = true};
    float known = 0;
    for (std::size_t i = 0; i < posts.size(); ++i) {
        height.highest = std::max<float>(height.highest, grid.highestAt(posts.at(i)));
        if (const std::int16_t mean = grid.mean[posts.at(i)]; mean != kUnknown) {
            height.mean += weights.at(i) * mean;
            known += weights.at(i);
        }
    }
    height.known = known > 0.5F;
    if (known > 0)
        height.mean /= known;
    return height;
}

std::optional<float> HeightPyramid::highestIn(double south, double west, double north, double east,
                                              double metres) const {
    const Grid& grid = gridFor(metres);
    const double steps = grid.side - 1;
    // One post more on each side: what lies between two may be as high as either.
    const auto first = [steps](double offset) {
        return static_cast<int>(std::clamp(std::floor(offset * steps), 0.0, steps));
    };
    const auto last = [steps](double offset) {
        return static_cast<int>(std::clamp(std::ceil(offset * steps), 0.0, steps));
    };
    if (north < corner_.south || south > corner_.south + 1 || east < corner_.west ||
        west > corner_.west + 1)
        return std::nullopt;
    std::int16_t highest = kUnknown;
    const int lastRow = last(corner_.south + 1 - south);
    const int lastColumn = last(east - corner_.west);
    for (int row = first(corner_.south + 1 - north); row <= lastRow; ++row)
        for (int column = first(west - corner_.west); column <= lastColumn; ++column)
            highest = std::max(highest, grid.highestAt(grid.placeOf(row, column)));
    return highest == kUnknown ? std::nullopt : std::optional<float>(highest);
}

}  // namespace korvel
