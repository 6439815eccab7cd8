#pragma once

#include <cmath>
#include <cstdint>

namespace korvel {

/// Red in the low byte, then green, then blue; the top byte is zero.
using ColorValue = std::uint32_t;

constexpr ColorValue Rgb(unsigned red, unsigned green, unsigned blue) {
    return (red & 0xFFU) | ((green & 0xFFU) << 8U) | ((blue & 0xFFU) << 16U);
}
constexpr unsigned RedOf(ColorValue color) { return color & 0xFFU; }
constexpr unsigned GreenOf(ColorValue color) { return (color >> 8U) & 0xFFU; }
constexpr unsigned BlueOf(ColorValue color) { return (color >> 16U) & 0xFFU; }

/// What the eye makes of it, 0 for black to 255 for white.
constexpr double lightOf(ColorValue color) {
    return 0.299 * RedOf(color) + 0.587 * GreenOf(color) + 0.114 * BlueOf(color);
}

/// `color` as it looks through a film of `over` that hides a share of it, 0 to 1.
inline ColorValue blended(ColorValue color, ColorValue over, double share) {
    const auto mix = [share](unsigned under, unsigned film) {
        return static_cast<unsigned>(std::lround(under * (1 - share) + film * share));
    };
    return Rgb(mix(RedOf(color), RedOf(over)), mix(GreenOf(color), GreenOf(over)),
               mix(BlueOf(color), BlueOf(over)));
}

}  // namespace korvel
