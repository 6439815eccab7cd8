#pragma once

#include <vector>

#include "paint/Canvas.h"

namespace korvel {

class MapProjection;
class TrackLevels;
struct MapFrame;

/// What of the track is to be drawn in the view: newest first, cut to it, without what would fall
/// on the same pixels again. A cap keeps a year of circuits from stopping the map; the oldest is
/// left out.
std::vector<Segment> trackSegments(const TrackLevels& track, const MapProjection& projection,
                                   const Rect& view);

/// The breadcrumb track as a thin line.
void paintTrack(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
