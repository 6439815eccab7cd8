#pragma once

#include "map/profile/ProfileContent.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Paints the ground and the airspaces along the way from the side, with the altitudes that are
/// planned, the aircraft and where it will be: the strip under the map, and the page. Without a way
/// it says why there is nothing. Fills the whole canvas.
void paintProfile(Canvas& canvas, const ProfileContent& content, const MapColorCache& colors);

}  // namespace korvel
