#pragma once

#include <optional>
#include <string_view>

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"
#include "paint/MapColorCache.h"

namespace korvel {

/// The scheme's colour that stands for a system; without a system that of every satellite in use.
ColorValue satelliteColor(std::optional<SatelliteSystem> system, const MapColorCache& colors);

/// "GPS", "GLONASS" and so on, the same in every language.
std::string_view systemName(SatelliteSystem system);

/// A satellite's shape: a disc for GPS and for a satellite of no known system, each other system
/// has corners of its own number, so that it can be told without its colour.
void paintSatelliteSymbol(Canvas& canvas, std::optional<SatelliteSystem> system, Point center,
                          double radius, ColorValue fill, ColorValue rim);

/// Which of the two can be read better on a ground of this colour.
ColorValue readableOn(ColorValue ground, ColorValue one, ColorValue other);

}  // namespace korvel
