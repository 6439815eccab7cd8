#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "paint/Canvas.h"
#include "paint/Color.h"
#include "paint/ground/Coverage.h"

namespace korvel {

/// Heights at every `step`th pixel of a raster, in rows from the top; the last column and row lie
/// on or beyond its edges.
struct HeightGrid {
    HeightGrid(int width, int height, int pixels);

    int step;  ///< pixels from one to the next, a power of two
    int columns;
    int rows;
    std::vector<float> metres;

    [[nodiscard]] float at(int column, int row) const { return metres[placeOf(column, row)]; }
    float& at(int column, int row) { return metres[placeOf(column, row)]; }
    [[nodiscard]] std::size_t placeOf(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
               static_cast<std::size_t>(column);
    }
};

/// Where light comes from on a raster.
struct Sunlight {
    /// A step of one pixel towards the ground's north-west, whatever is up: else hills would turn
    /// into valleys as the map turns.
    Point northWest;
    double metresPerPixel = 1;
    /// How steep a slope looks: slopes are metres in a metre, times this.
    double steepness = 1;
};

/// The colour of land at each height and slope.
class LandTint {
 public:
    /// `shading` from 0, colour alone, to 1. A dark map stays dark: its slopes get a little light
    /// instead of losing some.
    LandTint(ColorValue land, ColorValue highest, double shading);

    /// A colour for each of the heights, words as in a Bitmap.
    void colorize(const HeightGrid& heights, const Sunlight& light,
                  std::vector<std::uint32_t>& colors) const;
    /// Height in metres; light from -1, turned away from it, to 1.
    [[nodiscard]] std::uint32_t at(double metres, double light) const;

 private:
    std::vector<std::uint32_t> table_;  ///< rows of shades for each height
};

}  // namespace korvel
