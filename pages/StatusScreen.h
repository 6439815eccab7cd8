#pragma once

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Stands in for a page that has nothing to show yet: how far the connection to the receiver has
/// come, in type for arm's length, and what to do while there is no receiver at all. Fills the
/// whole canvas.
void paintStatusScreen(Canvas& canvas, const CockpitData& data, const MapColorCache& colors);

/// The same on a card over a map that no aircraft was seen on yet, a little above its middle.
void paintStatusCard(Canvas& canvas, const CockpitData& data, const MapColorCache& colors);

/// Lines separated by "\n" in the same manner, the first one large.
void paintNotice(Canvas& canvas, std::string_view words, const MapColorCache& colors);

}  // namespace korvel
