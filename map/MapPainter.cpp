#include "map/MapPainter.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "cockpit/PlaceClass.h"
#include "map/feeds/ObstacleFeed.h"
#include "map/layers/AircraftLayer.h"
#include "map/layers/AirspaceLayer.h"
#include "map/layers/ApproachLayer.h"
#include "map/layers/CompassRoseLayer.h"
#include "map/layers/EnduranceLayer.h"
#include "map/layers/FurnitureLayer.h"
#include "map/layers/GridLayer.h"
#include "map/layers/GroundLayer.h"
#include "map/layers/MeasureLayer.h"
#include "map/layers/ObstacleLayer.h"
#include "map/layers/PlaceLayer.h"
#include "map/layers/PlanBandLayer.h"
#include "map/layers/PlanLayer.h"
#include "map/layers/RangeRingLayer.h"
#include "map/layers/RunwayLayer.h"
#include "map/layers/TrackLayer.h"
#include "map/layers/TrafficLayer.h"

namespace korvel {
namespace {

class BackgroundLayer final : public Layer {
 public:
    using Layer::Layer;

    void paint(Canvas& canvas) const override {
        canvas.rect(view().area, Brush{color(ColorKey::MapBackground)}, std::nullopt);
    }
};

/// What the page lays over the map.
class InstrumentLayer final : public Layer {
 public:
    using Layer::Layer;

    void layOut(const TextMeasure& /*texts*/, LabelRoom& room) override {
        for (const Rect& area : content().covered)
            room.taken.reserve(area);
    }
    void paint(Canvas& /*canvas*/) const override {
        if (content().overMap)
            content().overMap();
    }
};

constexpr int kAirspaceWordsToNm = 65;
constexpr int kNearest = kRangeStepsNm.front();
constexpr int kFarthest = kRangeStepsNm.back();

template <class Kind>
std::shared_ptr<Layer> make(const MapContent& content) {
    return std::make_shared<Kind>(content);
}

template <class Kind>
constexpr MapLayer layer(std::string_view name, Turn turn, int toRangeNm = kFarthest) {
    return {name, kNearest, toRangeNm, turn, make<Kind>, &Layer::paint};
}

/// The words of a layer whose own row stands before.
template <class Kind>
constexpr MapLayer words(std::string_view name, Turn turn, int toRangeNm = kFarthest) {
    return {name, kNearest, toRangeNm, turn, make<Kind>, &Layer::paintWords};
}

constexpr std::array kLayers{
    layer<BackgroundLayer>("background", Turn::Ground),
    layer<GroundLayer>("ground", Turn::Ground),
    layer<GridLayer>("grid", Turn::Grid),
    layer<RangeRingLayer>("range rings", Turn::Rings),
    layer<CompassRoseLayer>("compass roses", Turn::Ground, kRosesToNm),
    layer<RunwayLayer>("runways", Turn::Ground, kRunwaysToNm),
    layer<PlaceLayer>("places", Turn::Ground),
    words<GridLayer>("grid labels", Turn::Grid),
    words<RangeRingLayer>("ring distances", Turn::Rings),
    layer<ObstacleLayer>("obstacles", Turn::Ground, kObstaclesToNm),
    layer<TrackLayer>("track", Turn::Ground),
    layer<EnduranceLayer>("endurance", Turn::Plan),
    layer<PlanLayer>("plan", Turn::Plan),
    words<RunwayLayer>("runway numbers", Turn::Ground, kRunwaysToNm),
    words<PlaceLayer>("names", Turn::Ground),
    layer<AirspaceLayer>("airspace limits", Turn::Ground, kAirspaceWordsToNm),
    words<ObstacleLayer>("near obstacles", Turn::Ground, kObstaclesToNm),
    layer<ApproachLayer>("approach", Turn::Approach),
    layer<TrafficLayer>("traffic", Turn::Approach),
    layer<AircraftLayer>("aircraft", Turn::Fixed),
    layer<MeasureLayer>("ruler", Turn::Ruler),
    layer<PlanBandLayer>("pulled plan", Turn::Ruler),
    layer<InstrumentLayer>("instrument", Turn::Fixed),
    layer<FurnitureLayer>("furniture", Turn::Fixed),
};

/// A row of the table with its layer of this frame, which two rows may share.
struct Shown {
    const MapLayer* row;
    std::shared_ptr<Layer> layer;
};

std::vector<Shown> layersOf(const MapContent& content) {
    std::vector<Shown> shown;
    shown.reserve(kLayers.size());
    for (const MapLayer& row : kLayers) {
        if (content.view.rangeNm < row.fromRangeNm || content.view.rangeNm > row.toRangeNm)
            continue;
        const auto same =
            std::ranges::find(shown, row.make, [](const Shown& other) { return other.row->make; });
        shown.push_back({&row, same != shown.end() ? same->layer : row.make(content)});
    }
    return shown;
}

void layOut(std::vector<Shown> shown, const TextMeasure& texts, const MapContent& content) {
    LabelRoom room(content.view.area);
    std::ranges::stable_sort(shown, {}, [](const Shown& each) { return each.row->turn; });
    for (const Shown& each : shown)
        if (each.row->paint == &Layer::paint)
            each.layer->layOut(texts, room);
}

}  // namespace

std::span<const MapLayer> mapLayers() { return kLayers; }

void paintMap(Canvas& canvas, const MapContent& content) {
    const std::vector<Shown> shown = layersOf(content);
    layOut(shown, canvas.textMeasure(), content);
    for (const Shown& each : shown)
        (*each.layer.*each.row->paint)(canvas);
}

}  // namespace korvel
