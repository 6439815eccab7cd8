#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "paint/Color.h"
#include "paint/ground/Coverage.h"
#include "paint/ground/HeightShading.h"

namespace korvel {

/// A pixel of a Bitmap in this colour, opaque.
constexpr std::uint32_t toPixel(ColorValue color) {
    return 0xFF000000U | RedOf(color) << 16U | GreenOf(color) << 8U | BlueOf(color);
}

/// On a dark map lines are lighter than what they lie on.
bool isDarkLand(ColorValue land);

/// Every mixture of water and land, with the thin line of the shore between them: where a pixel is
/// partly land it is darker than either, or lighter on a dark map.
class ShorePalette {
 public:
    ShorePalette(ColorValue land, ColorValue water);

    /// Land, water and shore of a whole raster; `pixels` has its size.
    void paint(const Coverage& land, std::span<std::uint32_t> pixels) const;
    /// The same with land in a colour for each of the heights, which is blended from one to the
    /// next.
    void paint(const Coverage& land, const HeightGrid& heights,
               std::span<const std::uint32_t> colors, std::span<std::uint32_t> pixels) const;
    ColorValue shore() const { return shore_; }

 private:
    std::array<std::uint32_t, Coverage::kFull + 1> mixed_{};
    std::array<std::uint8_t, Coverage::kFull + 1> line_{};  ///< of the shore's, in 256ths
    ColorValue shore_;
};

/// `under` with so many 256ths of `over`, both words of an opaque Bitmap.
std::uint32_t mixedPixel(std::uint32_t under, std::uint32_t over, std::uint32_t share);

/// Lays a colour over what is there, as much of it as the coverage says; `opacity` 0 to 1.
void paintOver(const Coverage& coverage, ColorValue color, double opacity,
               std::span<std::uint32_t> pixels);
/// The other way: where the coverage has nothing the colour hides all.
void paintAround(const Coverage& coverage, ColorValue color, std::span<std::uint32_t> pixels);

}  // namespace korvel
