#pragma once

#include <optional>

#include "geo/GeoPoint.h"
#include "map/MapViewport.h"
#include "paint/Canvas.h"

namespace korvel {

struct CockpitData;

/// How the map lies on the screen in one frame: feeds fetch what it shows, layers lay out on it,
/// fingers are looked up in it.
struct MapView {
    /// The viewport is laid out for the canvas; `center` is the ground under its aircraft's point.
    MapView(const MapViewport& viewport, GeoPoint center, int upTrueDeg, const Rect& canvas);

    MapProjection projection;
    Rect area;  ///< the canvas
    int rangeNm;
    double textPx;  ///< type size of labels
};

/// What stands in the aircraft's place: what the pilot looks at, else the aircraft, live or where
/// it was last. None while there is no valid one of them.
std::optional<GeoPoint> mapCenter(const CockpitData& data, const std::optional<GeoPoint>& lookAt);

}  // namespace korvel
