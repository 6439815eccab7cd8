#include "navdb/file/DatabaseTables.h"

#include <cmath>

namespace korvel {
namespace {

constexpr std::int32_t kMillionthsPerDegree = 1'000'000;
constexpr int kCellOffset = 1260;  // three turns and a half: above 0 for any stored longitude

int cellOfDegree(double wholeDegree) {
    const double shifted = std::fmod(wholeDegree, kCellCount) + kCellOffset;
    return static_cast<int>(shifted) % kCellCount;
}

}  // namespace

int westernCell(double degrees) { return cellOfDegree(std::floor(degrees)); }

int easternCell(double degrees) { return cellOfDegree(std::ceil(degrees)); }

int cellOfStored(std::int32_t millionths) {
    std::int32_t degree = millionths / kMillionthsPerDegree;
    if (millionths % kMillionthsPerDegree < 0)
        --degree;
    const int cell = (degree + kCellOffset) % kCellCount;
    return cell < 0 ? cell + kCellCount : cell;
}

}  // namespace korvel
