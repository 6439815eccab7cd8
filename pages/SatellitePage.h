#pragma once

#include <string>

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Where a satellite stands in a sky plot: the zenith in the middle, the horizon on the rim, north
/// at the top, east at the right.
Point skyPoint(const Satellite& satellite, Point center, double radius);

/// "3D fix, 8 satellites"
std::string fixText(const CockpitData& data);

/// The satellites in the sky and how well each is received; without any it says why. Fills the
/// whole canvas.
void paintSatellitePage(Canvas& canvas, const CockpitData& data, const MapColorCache& colors);

}  // namespace korvel
