#include "tools/basemap/ReliefGrid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "ground/basemap/CoarseRelief.h"
#include "tools/basemap/NetCdf.h"

namespace korvel::making {
namespace {

constexpr std::size_t kColumns = std::size_t{360} * kReliefCellsPerDegree;
constexpr std::size_t kRows = std::size_t{180} * kReliefCellsPerDegree;

/// The file's column x holds the height at longitude (x + 1.5) / 12 and its row y that at latitude
/// -90 + (y - 0.5) / 12, whatever its axes say: so it agrees with the elevations of airports all
/// over the world, and else mountains stand 10 km off. These are the middles of the map's cells.
std::uint16_t heightAt(const std::vector<double>& heights, std::size_t column, std::size_t row) {
    const std::size_t fromGreenwich = (column + kColumns / 2) % kColumns;
    const std::size_t x = (fromGreenwich + kColumns - 1) % kColumns;
    const double metres = heights[(row + 1) * kColumns + x];
    if (!(metres > 0 && metres < 9000))
        return 0;
    return static_cast<std::uint16_t>(std::lround(metres / kReliefStepM));
}

}  // namespace

std::vector<std::string> readRelief(const std::string& path) {
    const std::vector<double> heights = NetCdf(path).numbers("ROSE");
    if (heights.size() != kColumns * (kRows + 1))
        throw std::runtime_error(path + ": not the grid of five minutes");
    std::vector<std::string> tiles;
    for (std::size_t row = 0; row < kReliefRows; ++row) {
        for (std::size_t column = 0; column < kReliefColumns; ++column) {
            ReliefTile tile{};
            for (std::size_t y = 0; y < kReliefCells; ++y)
                for (std::size_t x = 0; x < kReliefCells; ++x)
                    tile[y * kReliefCells + x] =
                        heightAt(heights, column * kReliefCells + x, row * kReliefCells + y);
            tiles.push_back(encodeRelief(tile));
        }
    }
    return tiles;
}

}  // namespace korvel::making
