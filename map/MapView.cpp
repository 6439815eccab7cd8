#include "map/MapView.h"

#include "cockpit/CockpitData.h"
#include "paint/TypeSizes.h"

namespace korvel {

MapView::MapView(const MapViewport& viewport, GeoPoint center, int upTrueDeg, const Rect& canvas)
    : projection(viewport.projection(center, upTrueDeg)),
      area(canvas),
      rangeNm(viewport.currentRangeNm()),
      textPx(mapTextPx(canvas.width, canvas.height)) {}

std::optional<GeoPoint> mapCenter(const CockpitData& data, const std::optional<GeoPoint>& lookAt) {
    std::optional<GeoPoint> center = lookAt;
    if (!center)
        center = data.position ? data.position : data.lastPosition;
    return center && IsValid(*center) ? center : std::nullopt;
}

}  // namespace korvel
