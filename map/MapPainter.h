#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string_view>

#include "cockpit/CockpitData.h"
#include "map/MapViewport.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;
struct MapFrame;
class MeasureTool;
class TrackLevels;
struct PlaceSet;

/// One layer of the map: a function that paints a frame, and the display ranges at which it shows.
struct MapLayer {
    std::string_view name;
    int fromRangeNm;  ///< smallest range at which the layer shows
    int toRangeNm;    ///< largest range at which the layer shows
    void (*paint)(const MapFrame& frame, Canvas& canvas);
};

/// All layers in drawing order, the ground first: the one table of what shows when.
///
/// To add a layer (places, airways, route, track):
/// 1. Write `void paintThings(const MapFrame& frame, Canvas& canvas)` in a file of its own. Compute
///    where things are apart from painting them. Cut lines and polygons to frame.view with the
///    helpers of Clip.h. Claim a label's box in frame.labels, and leave the label out when it is
///    refused. Take colours from frame.colors and sizes from frame.textPx. Fetch nothing.
/// 2. What it shows and CockpitData does not have goes into MapFrame, as a span or a pointer that
///    may be null.
/// 3. Give it a row in MapPainter.cpp, at its place in the drawing order.
std::span<const MapLayer> mapLayers();

/// What to draw the map from.
struct MapScene {
    const CockpitData& data;
    const MapViewport& viewport;  ///< laid out for the canvas's size
    int upTrueDeg = 0;            ///< true direction that points up, 0 to 359
    bool turns = true;            ///< the aircraft points up; otherwise it points along its track
    /// What stands in the aircraft's place while the pilot looks around; none: the aircraft.
    std::optional<GeoPoint> lookAt = std::nullopt;
    const PlaceSet* places = nullptr;      ///< from the databases; null for none
    const TrackLevels* track = nullptr;    ///< of CockpitData::track; null for none
    const MeasureTool* measure = nullptr;  ///< the ruler; null for none
    /// Drawn over the map and under its boxes; none for nothing.
    std::function<void()> overMap{};
    /// What will be drawn over the map and labels keep out of.
    std::span<const Rect> covered = {};
    std::span<const Rect> alarms = {};  ///< boxes that will lie over all
};

/// Paints the map around the live position, or around the last one, which it marks as lost. One of
/// them is there. A map that was moved away from the aircraft says so.
void paintMap(Canvas& canvas, const MapScene& scene, const MapColorCache& colors);

}  // namespace korvel
