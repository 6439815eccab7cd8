#pragma once

#include <optional>

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// How far the aircraft is from the glide path.
struct GlideDeviation {
    int aboveFt = 0;   ///< negative below it
    double share = 0;  ///< where the path lies, of full scale: 1 at the top, -1 at the bottom mark
};

/// Absent where there is no glide path or no altitude. Full scale is 0.7 degrees, as of a receiver
/// for it on the ground, but never less than kLeastFullScaleFt: closer in the altitudes of
/// satellites are no better.
std::optional<GlideDeviation> glideDeviation(const CockpitData& data);
inline constexpr double kLeastFullScaleFt = 150;

/// Where the approach's box stands on a page of this size: at the left edge, in the middle.
Rect approachBox(double width, double height);

/// Which runway is approached, and the glide path: its scale, and in words how high the aircraft
/// is.
void paintApproachBox(Canvas& canvas, const Rect& area, const CockpitData& data,
                      const MapColorCache& colors);

}  // namespace korvel
