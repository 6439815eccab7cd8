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

/// How steeply the ground rises towards the ground's north-west at each of the heights, metres in a
/// metre. `northWest` is a step of one pixel that way, whatever is up on the raster: else hills
/// would turn into valleys as the map turns.
void slopesTowards(Point northWest, double metresPerPixel, const HeightGrid& heights,
                   std::vector<float>& slopes);

/// How bright a slope is under light from there, from -1, turned away from it, to 1. Slopes look
/// steeper than they are by `steepness`.
double lightOnSlope(double slope, double steepness);

/// The colour of land at each height and slope.
class LandTint {
 public:
    /// A dark map stays dark: its slopes get a little light besides losing some.
    LandTint(ColorValue land, ColorValue highest);

    /// A word as in a Bitmap. Height in metres; light from -1, turned away from it, to 1.
    [[nodiscard]] std::uint32_t at(double metres, double light) const;

 private:
    std::vector<std::uint32_t> table_;  ///< rows of shades for each height
};

}  // namespace korvel
