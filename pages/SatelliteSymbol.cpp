#include "pages/SatelliteSymbol.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "paint/Polar.h"

namespace korvel {
namespace {

struct Look {
    std::string_view name;
    std::optional<ColorKey> color;  ///< none for that of every satellite in use
    int corners;                    ///< 0 for a disc
    int firstDeg;                   ///< of the first corner, from the top to the right
    double size;                    ///< of the radius, so that all look equally large
};
/// By SatelliteSystem.
constexpr std::array<Look, kSatelliteSystems> kLooks = {
    {{"GPS", std::nullopt, 0, 0, 1},
     {"SBAS", ColorKey::MapFix, 4, 45, 1.22},
     {"GLONASS", ColorKey::MapNdb, 4, 0, 1.3},
     {"Galileo", ColorKey::MapVor, 6, 30, 1.12},
     {"BeiDou", ColorKey::HsiTrack, 5, 0, 1.2},
     {"QZSS", ColorKey::MapObstacleCaution, 3, 0, 1.5},
     {"NavIC", ColorKey::MapClassC, 3, 180, 1.5}}};

/// In light, of a symbol against the page; what has less is mixed with so much of the ink.
constexpr double kLeastContrast = 60;
constexpr double kTowardsInk = 0.4;

const Look& lookOf(SatelliteSystem system) { return kLooks.at(static_cast<std::size_t>(system)); }

int brightness(ColorValue color) {
    constexpr int kRed = 3;
    constexpr int kGreen = 6;
    const auto part = [color](unsigned shift) { return static_cast<int>(color >> shift & 0xFFU); };
    return kRed * part(0) + kGreen * part(8) + part(16);
}

}  // namespace

ColorValue satelliteColor(std::optional<SatelliteSystem> system, const MapColorCache& colors) {
    const std::optional<ColorKey> own = system ? lookOf(*system).color : std::nullopt;
    const ColorValue background = colors[ColorKey::MapBackground];
    const ColorValue color = own ? colors[*own] : colors.chosenGround();
    if (std::abs(lightOf(color) - lightOf(background)) >= kLeastContrast)
        return color;
    return blended(color, colors[ColorKey::HsiNumeral], kTowardsInk);
}

std::string_view systemName(SatelliteSystem system) { return lookOf(system).name; }

void paintSatelliteSymbol(Canvas& canvas, std::optional<SatelliteSystem> system, Point center,
                          double radius, ColorValue fill, ColorValue rim) {
    constexpr int kFullCircle = 360;
    const Pen pen{rim, 2, PenStyle::Solid};
    if (!system || lookOf(*system).corners == 0)
        return canvas.circle(center, radius, Brush{fill}, pen);
    const Look& look = lookOf(*system);
    std::vector<Point> corners;
    corners.reserve(static_cast<std::size_t>(look.corners));
    for (int i = 0; i < look.corners; ++i)
        corners.push_back(
            polar(center, radius * look.size, look.firstDeg + i * kFullCircle / look.corners));
    canvas.polygon(corners, Brush{fill}, pen);
}

ColorValue readableOn(ColorValue ground, ColorValue one, ColorValue other) {
    const auto contrast = [ground](ColorValue color) {
        return std::abs(brightness(color) - brightness(ground));
    };
    return contrast(one) >= contrast(other) ? one : other;
}

}  // namespace korvel
