#include "paint/ground/HeightShading.h"

#include <algorithm>
#include <cmath>

#include "paint/ground/GroundColors.h"

namespace korvel {
namespace {

constexpr int kHeights = 512;
constexpr double kMetresPerHeight = 12;
constexpr int kShades = 64;
constexpr int kFlat = kShades / 2;
// The highest colour at full strength would hide red airports.
constexpr double kHighestM = 4500;
constexpr double kCurve = 0.7;
constexpr double kMostTint = 0.85;
constexpr double kMostTintDark = 0.38;
// Of white and black in slopes that face the light and that are turned away from it.
constexpr double kLit = 0.35;
constexpr double kUnlit = 0.5;
constexpr double kLitDark = 0.16;
constexpr double kUnlitDark = 0.6;
constexpr ColorValue kBlack = Rgb(0, 0, 0);
constexpr ColorValue kWhite = Rgb(255, 255, 255);

int heightRow(double metres) {
    return static_cast<int>(std::clamp(metres / kMetresPerHeight, 0.0, kHeights - 1.0));
}

/// The shades from flat to the steepest slope, to the light or from it.
constexpr double kSteepest = kFlat - 1;

int shadeOf(double light) {
    return std::clamp(kFlat + static_cast<int>(std::lround(light * kSteepest)), 0, kShades - 1);
}

}  // namespace

HeightGrid::HeightGrid(int width, int height, int pixels)
    : step(pixels),
      columns((width + pixels - 1) / pixels + 1),
      rows((height + pixels - 1) / pixels + 1),
      metres(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

LandTint::LandTint(ColorValue land, ColorValue highest)
    : table_(static_cast<std::size_t>(kHeights) * kShades) {
    const bool dark = isDarkLand(land);
    for (int row = 0; row < kHeights; ++row) {
        const double share = std::min(std::pow(row * kMetresPerHeight / kHighestM, kCurve), 1.0);
        const ColorValue tint = blended(land, highest, share * (dark ? kMostTintDark : kMostTint));
        for (int shade = 0; shade < kShades; ++shade) {
            const double light = (shade - kFlat) / kSteepest;
            const ColorValue shaded =
                light > 0 ? blended(tint, kWhite, std::min(light, 1.0) * (dark ? kLitDark : kLit))
                          : blended(tint, kBlack, -light * (dark ? kUnlitDark : kUnlit));
            table_[static_cast<unsigned>(row * kShades + shade)] = toPixel(shaded);
        }
    }
}

std::uint32_t LandTint::at(double metres, double light) const {
    return table_[static_cast<unsigned>(heightRow(metres) * kShades + shadeOf(light))];
}

void slopesTowards(Point northWest, double metresPerPixel, const HeightGrid& heights,
                   std::vector<float>& slopes) {
    slopes.resize(heights.metres.size());
    const auto x = static_cast<float>(northWest.x);
    const auto y = static_cast<float>(northWest.y);
    const auto apart = static_cast<float>(heights.step * metresPerPixel);
    for (int row = 0; row < heights.rows; ++row) {
        const int above = std::max(row - 1, 0);
        const int below = std::min(row + 1, heights.rows - 1);
        const float down = y / (static_cast<float>(std::max(below - above, 1)) * apart);
        for (int column = 0; column < heights.columns; ++column) {
            const int left = std::max(column - 1, 0);
            const int right = std::min(column + 1, heights.columns - 1);
            const float across = x / (static_cast<float>(std::max(right - left, 1)) * apart);
            slopes[heights.placeOf(column, row)] =
                (heights.at(right, row) - heights.at(left, row)) * across +
                (heights.at(column, below) - heights.at(column, above)) * down;
        }
    }
}

double lightOnSlope(double slope, double steepness) {
    const double rise = slope * steepness;
    return -rise / std::sqrt(1 + rise * rise);
}

}  // namespace korvel
