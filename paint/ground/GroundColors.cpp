#include "paint/ground/GroundColors.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace korvel {
namespace {

constexpr double kDarkLand = 60;       ///< of lightOf(): below it the shore is drawn lighter
constexpr double kShoreDarker = 0.45;  ///< how much of black there is in the shore's line
constexpr double kShoreLighter = 0.3;  ///< and of white on a dark map
constexpr double kMostShore = 0.75;    ///< of the line in a pixel that is half land
constexpr ColorValue kBlack = Rgb(0, 0, 0);
constexpr ColorValue kWhite = Rgb(255, 255, 255);

ColorValue shoreColor(ColorValue land, ColorValue water) {
    return isDarkLand(land) ? blended(water, kWhite, kShoreLighter)
                            : blended(water, kBlack, kShoreDarker);
}

std::uint32_t mixed(std::uint32_t under, std::uint32_t over, std::uint32_t share) {
    const std::uint32_t rest = Coverage::kFull - share;
    const std::uint32_t redBlue =
        ((under & 0xFF00FFU) * rest + (over & 0xFF00FFU) * share) >> 8U & 0xFF00FFU;
    const std::uint32_t green =
        ((under & 0x00FF00U) * rest + (over & 0x00FF00U) * share) >> 8U & 0x00FF00U;
    return 0xFF000000U | redBlue | green;
}

std::span<std::uint32_t> rowOf(std::span<std::uint32_t> pixels, const Coverage& coverage, int y) {
    const auto width = static_cast<std::size_t>(coverage.width());
    return pixels.subspan(static_cast<std::size_t>(y) * width, width);
}

}  // namespace

bool isDarkLand(ColorValue land) { return lightOf(land) < kDarkLand; }

ShorePalette::ShorePalette(ColorValue land, ColorValue water) : shore_(shoreColor(land, water)) {
    for (std::size_t i = 0; i < mixed_.size(); ++i) {
        const double share = static_cast<double>(i) / Coverage::kFull;
        // Most where a pixel is half land, nothing at the ends.
        const double line = kMostShore * 4 * share * (1 - share);
        line_[i] = static_cast<std::uint8_t>(std::lround(line * Coverage::kFull));
        mixed_[i] = toPixel(blended(blended(water, land, share), shore_, line));
    }
}

void ShorePalette::paint(const Coverage& land, std::span<std::uint32_t> pixels) const {
    std::vector<std::uint16_t> shares(static_cast<std::size_t>(land.width()));
    for (int y = 0; y < land.height(); ++y) {
        const auto row = rowOf(pixels, land, y);
        if (land.row(y, shares))
            std::transform(shares.begin(), shares.end(), row.begin(),
                           [this](std::uint16_t share) { return mixed_[share]; });
        else
            std::fill(row.begin(), row.end(), mixed_[0]);
    }
}

void ShorePalette::paint(const Coverage& land, const HeightGrid& heights,
                         std::span<const std::uint32_t> colors,
                         std::span<std::uint32_t> pixels) const {
    std::vector<std::uint16_t> shares(static_cast<std::size_t>(land.width()));
    std::vector<std::uint32_t> line(static_cast<std::size_t>(heights.columns));
    const auto step = static_cast<unsigned>(heights.step);
    const std::uint32_t water = mixed_[0];
    const std::uint32_t shore = toPixel(shore_);
    for (int y = 0; y < land.height(); ++y) {
        const auto row = rowOf(pixels, land, y);
        if (!land.row(y, shares)) {
            std::fill(row.begin(), row.end(), water);
            continue;
        }
        const std::uint32_t* above = colors.data() + heights.placeOf(0, y / heights.step);
        const std::uint32_t* below = above + heights.columns;
        const std::uint32_t down = static_cast<unsigned>(y) % step * Coverage::kFull / step;
        for (std::size_t i = 0; i < line.size(); ++i)
            line[i] = down == 0 ? above[i] : mixed(above[i], below[i], down);
        for (std::size_t x = 0; x < row.size(); ++x) {
            const std::uint32_t share = shares[x];
            if (share == 0) {
                row[x] = water;
                continue;
            }
            const std::size_t left = x / step;
            const auto right = static_cast<std::uint32_t>(x % step * Coverage::kFull / step);
            const std::uint32_t ground = mixed(line[left], line[left + 1], right);
            row[x] = share == Coverage::kFull
                         ? ground
                         : mixed(mixed(water, ground, share), shore, line_[share]);
        }
    }
}

std::uint32_t mixedPixel(std::uint32_t under, std::uint32_t over, std::uint32_t share) {
    return mixed(under, over, share);
}

void paintOver(const Coverage& coverage, ColorValue color, double opacity,
               std::span<std::uint32_t> pixels) {
    const std::uint32_t over = toPixel(color);
    const auto most = static_cast<std::uint32_t>(std::lround(opacity * Coverage::kFull));
    std::vector<std::uint16_t> shares(static_cast<std::size_t>(coverage.width()));
    for (int y = 0; y < coverage.height(); ++y) {
        if (!coverage.row(y, shares))
            continue;
        const auto row = rowOf(pixels, coverage, y);
        for (std::size_t x = 0; x < row.size(); ++x)
            if (shares[x] != 0)
                row[x] = mixed(row[x], over, shares[x] * most / Coverage::kFull);
    }
}

void paintAround(const Coverage& coverage, ColorValue color, std::span<std::uint32_t> pixels) {
    const std::uint32_t over = toPixel(color);
    std::vector<std::uint16_t> shares(static_cast<std::size_t>(coverage.width()));
    for (int y = 0; y < coverage.height(); ++y) {
        const auto row = rowOf(pixels, coverage, y);
        if (!coverage.row(y, shares)) {
            std::fill(row.begin(), row.end(), over);
            continue;
        }
        for (std::size_t x = 0; x < row.size(); ++x)
            row[x] = mixed(over, row[x], shares[x]);
    }
}

}  // namespace korvel
