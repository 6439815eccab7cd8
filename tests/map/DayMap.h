#pragma once

#include <functional>

#include "cockpit/Cockpit.h"
#include "map/MapPainter.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel {

/// A page's map around the aircraft, painted in the colours of the day.
struct DayMap {
    DayMap(PageId page, int width, int height, int rangeNm) : turns(page != PageId::NorthUp), canvas(width, height) {
        viewport.layout(page, width, height);
        viewport.chooseRange(rangeNm);
    }

    MapContent content(const CockpitData& data, int upTrueDeg = 0) const {
        const GeoPoint center = mapCenter(data, std::nullopt).value();
        return {.data = data,
            .colors = colors,
            .view = {viewport, center, turns ? upTrueDeg : 0, canvas.area()},
            .turns = turns};
    }
    RecordingCanvas& paint(const MapContent& content) {
        canvas.clear();
        paintMap(canvas, content);
        return canvas;
    }
    RecordingCanvas& paint(const CockpitData& data, int upTrueDeg = 0) { return paint(content(data, upTrueDeg)); }
    RecordingCanvas& paint(const CockpitData& data, const PlaceSet& places) {
        MapContent all = content(data);
        all.places = &places;
        return paint(all);
    }
    /// Where a point of the screen lies while north is up.
    GeoPoint ground(const CockpitData& data, Point at) const {
        return viewport.projection(data.position.value(), 0).unproject(at);
    }

    bool turns;
    ColorScheme scheme;
    MapColorCache colors{scheme};
    MapViewport viewport;
    RecordingCanvas canvas;
};

}  // namespace korvel
