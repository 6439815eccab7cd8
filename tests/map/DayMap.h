#pragma once

#include "map/MapPainter.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"

namespace korvel {

/// Paints maps in the colours of the day.
struct DayMap {
    ColorScheme scheme;
    MapColorCache colors{scheme};

    /// Around the aircraft.
    MapContent content(
        const CockpitData& data, const MapViewport& viewport, const Rect& area, int upTrueDeg = 0) const {
        return {
            .data = data, .colors = colors, .view = {viewport, mapCenter(data, std::nullopt).value(), upTrueDeg, area}};
    }
    void paint(Canvas& canvas, const CockpitData& data, const MapViewport& viewport) const {
        paintMap(canvas, content(data, viewport, canvas.area()));
    }
};

}  // namespace korvel
