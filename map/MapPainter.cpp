#include "map/MapPainter.h"

#include <array>
#include <utility>
#include <vector>

#include "cockpit/PlaceClass.h"
#include "map/MapFrame.h"
#include "map/layers/AircraftLayer.h"
#include "map/layers/ApproachLayer.h"
#include "map/layers/FurnitureLayer.h"
#include "map/layers/GridLayer.h"
#include "map/layers/MeasureLayer.h"
#include "map/layers/PlaceLayer.h"
#include "map/layers/PlanLayer.h"
#include "map/layers/RangeRingLayer.h"
#include "map/layers/RunwayLayer.h"
#include "map/layers/TrackLayer.h"
#include "paint/MapLook.h"

namespace korvel {
namespace {

void paintBackground(const MapFrame& frame, Canvas& canvas) {
    canvas.rect(frame.view, Brush{frame.colors[ColorKey::MapBackground]}, std::nullopt);
}

void paintInstrument(const MapFrame& frame, Canvas& /*canvas*/) {
    if (frame.overMap)
        frame.overMap();
}

constexpr int kNearest = kRangeStepsNm.front();
constexpr int kFarthest = kRangeStepsNm.back();

constexpr std::array kLayers{
    MapLayer{"background", kNearest, kFarthest, paintBackground},
    MapLayer{"grid", kNearest, kFarthest, paintGrid},
    MapLayer{"range rings", kNearest, kFarthest, paintRangeRings},
    MapLayer{"compass roses", kNearest, kRosesToNm, paintCompassRoses},
    MapLayer{"runways", kNearest, kRunwaysToNm, paintRunways},
    MapLayer{"places", kNearest, kFarthest, paintPlaces},
    MapLayer{"grid labels", kNearest, kFarthest, paintGridLabels},
    MapLayer{"ring distances", kNearest, kFarthest, paintRingLabels},
    MapLayer{"track", kNearest, kFarthest, paintTrack},
    MapLayer{"plan", kNearest, kFarthest, paintPlan},
    MapLayer{"names", kNearest, kFarthest, paintNames},
    MapLayer{"approach", kNearest, kFarthest, paintApproach},
    MapLayer{"aircraft", kNearest, kFarthest, paintAircraft},
    MapLayer{"ruler", kNearest, kFarthest, paintMeasure},
    MapLayer{"instrument", kNearest, kFarthest, paintInstrument},
    MapLayer{"furniture", kNearest, kFarthest, paintFurniture},
};

/// Where the aircraft is drawn that never had a position: far outside any view.
constexpr Point kNowhere{-1e6, -1e6};

}  // namespace

std::span<const MapLayer> mapLayers() { return kLayers; }

void paintMap(Canvas& canvas, const MapScene& scene, const MapColorCache& colors) {
    const CockpitData& data = scene.data;
    const std::optional<GeoPoint> position = data.position ? data.position : data.lastPosition;
    const std::optional<GeoPoint> center = scene.lookAt ? scene.lookAt : position;
    if (!center || !IsValid(*center))
        return;
    const MapProjection projection = scene.viewport.projection(*center, scene.upTrueDeg);
    const Point aircraft = position ? projection.project(*position) : kNowhere;
    const Rect view = canvas.area();
    const TextMeasure& texts = canvas.textMeasure();
    const int rangeNm = scene.viewport.currentRangeNm();
    const double textPx = mapTextPx(view.width, view.height);
    const MapFurniture furniture =
        layOutFurniture(texts, view, data, projection, rangeNm, textPx,
                        {.moved = scene.lookAt.has_value(), .alarms = scene.alarms});

    LabelSpace labels(view);
    for (const Rect& area : furniture.areas())
        labels.reserve(area);
    labels.reserve(aircraftArea(aircraft, textPx));
    for (const Rect& area : scene.covered)
        labels.reserve(area);
    std::optional<MeasureLook> measureLook;
    if (scene.measure != nullptr)
        measureLook = layOutMeasure(texts, *scene.measure, data, projection, view, textPx, labels);
    const std::vector<PlanLine> plan = tracePlan(data, projection, view);
    LabelSpace planLines(view);
    reservePlanLines(plan, planLines);
    // Before all layers: no name on the map is more important than those of the plan.
    const std::vector<PlanMark> planMarks =
        layOutPlan(texts, data, projection, view, textPx, labels, planLines);
    const std::vector<ApproachMark> approachMarks =
        layOutApproach(texts, data, projection, view, textPx, labels, planLines);
    const std::vector<RingLabel> ringLabels =
        layOutRingLabels(texts, projection, aircraft, rangeNm, textPx, scene.places, labels);

    const std::vector<GridLine> grid = gridLines(projection, view);
    std::vector<MapName> names;
    const MapFrame frame{.data = data,
                         .colors = colors,
                         .projection = projection,
                         .aircraft = aircraft,
                         .view = view,
                         .rangeNm = rangeNm,
                         .turns = scene.turns,
                         .textPx = textPx,
                         .furniture = furniture,
                         .labels = labels,
                         .names = names,
                         .planLines = planLines,
                         .places = scene.places,
                         .track = scene.track,
                         .measure = scene.measure,
                         .measureLook = std::move(measureLook),
                         .grid = grid,
                         .plan = plan,
                         .planMarks = planMarks,
                         .approachMarks = approachMarks,
                         .ringLabels = ringLabels,
                         .overMap = scene.overMap};
    for (const MapLayer& layer : mapLayers()) {
        if (rangeNm >= layer.fromRangeNm && rangeNm <= layer.toRangeNm)
            layer.paint(frame, canvas);
    }
}

}  // namespace korvel
