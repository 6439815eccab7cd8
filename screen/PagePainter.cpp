#include "screen/PagePainter.h"

#include <functional>
#include <vector>

#include "map/MapPainter.h"
#include "map/feeds/MapFeeds.h"
#include "map/layers/MapFurniture.h"
#include "map/profile/ProfilePainter.h"
#include "pages/AirspacePage.h"
#include "pages/ApproachBox.h"
#include "pages/EfisPage.h"
#include "pages/HsiPage.h"
#include "pages/MessageBox.h"
#include "pages/SatellitePage.h"
#include "pages/StatusScreen.h"
#include "paint/MapColorCache.h"
#include "paint/TypeSizes.h"

namespace korvel {

namespace {

/// How much of a table's lower edge a message takes: whole rows.
double messageBand(const Canvas& canvas, PageId page, const PageScene& scene) {
    const CockpitData& data = scene.data;
    if (page == PageId::FlightPlan && data.plan)
        return FlightPlanRows(canvas.width(), canvas.height(), 0).totals().height;
    const auto& near = data.shownNearAirports();
    if (page == PageId::NearestAirport && near && !near->empty())
        return canvas.height() -
               layOutNearest(canvas.width(), canvas.height(), near->size(), scene.nearest)
                   .list.rows.back()
                   .y;
    return 0;
}

/// Nobody was seen yet, and the pilot looks at nothing else.
bool opensWithoutAircraft(const PageScene& scene) {
    return scene.openAt && !scene.lookAt && !scene.data.position && !scene.data.lastPosition;
}

}  // namespace

bool PagePainter::turns(PageId page) { return page != PageId::NorthUp; }

bool PagePainter::isMap(PageId page) {
    return page == PageId::Map || page == PageId::NorthUp || page == PageId::MapHsi;
}

AlarmBoxes::Place PagePainter::alarmPlace(PageId page) {
    // Over the map with the HSI they would lie on the heading.
    return page == PageId::Map || page == PageId::NorthUp ? AlarmBoxes::Place::OverMap
                                                          : AlarmBoxes::Place::Strip;
}

bool PagePainter::showsApproach(PageId page, const CockpitData& data, bool looksAround) {
    return (isMap(page) || page == PageId::Hsi) && data.approach && data.position && !looksAround;
}

void PagePainter::paint(Canvas& canvas, PageId page, const PageScene& scene) const {
    const bool told = paintPage(canvas, page, scene);
    if (!told && !scene.data.message.empty())
        paintMessageBox(canvas, scene.data.message, colors_, messageBand(canvas, page, scene));
    if (showsApproach(page, scene.data, scene.lookAt.has_value()))
        paintApproachBox(canvas, approachBox(canvas.width(), canvas.height()), scene.data, colors_);
    if (scene.card)
        paintTapCard(canvas, *scene.card, colors_);
}

void PagePainter::paintStrip(Canvas& canvas, const PageScene& scene) const {
    if (scene.profile != nullptr)
        paintProfile(canvas, *scene.profile, colors_);
}

bool PagePainter::paintPage(Canvas& canvas, PageId page, const PageScene& scene) const {
    const CockpitData& data = scene.data;
    if (page == PageId::Satellite) {
        paintSatellitePage(canvas, data, colors_);
        return false;
    }
    if (page == PageId::Attitude) {
        paintAttitudePage(canvas, scene.attitude, colors_);
        return false;
    }
    if (page == PageId::FlightPlan) {
        paintFlightPlanPage(canvas, data, scene.plan, colors_);
        return false;
    }
    if (page == PageId::Profile && scene.profile != nullptr) {
        paintProfile(canvas, *scene.profile, colors_);
        return false;
    }
    // Without an aircraft the map still shows what the pilot looks for.
    const bool opens = isMap(page) && opensWithoutAircraft(scene);
    const auto center =
        opens ? scene.openAt : mapCenter(data, isMap(page) ? scene.lookAt : std::nullopt);
    if (!center) {
        paintStatusScreen(canvas, data, colors_);
        return true;
    }
    if (page == PageId::NearestAirport) {
        paintNearestPage(canvas, data, scene.nearest, colors_);
        return false;
    }
    if (page == PageId::Airspace) {
        paintAirspacePage(canvas, data, scene.airspaces, colors_);
        return false;
    }
    if (page == PageId::Hsi) {
        paintHsiPage(canvas, data, scene.viewport.aircraft(), colors_);
        return false;
    }
    if (page == PageId::Efis) {
        paintEfisPage(canvas, data, colors_);
        return false;
    }
    paintMapPage(canvas, page, scene, *center);
    if (opens)
        paintStatusCard(canvas, data, colors_);
    return true;
}

void PagePainter::paintMapPage(Canvas& canvas, PageId page, const PageScene& scene,
                               GeoPoint center) const {
    const CockpitData& data = scene.data;
    // Around the aircraft, so not while the pilot looks elsewhere.
    const bool withHsi = page == PageId::MapHsi && data.position && !scene.lookAt;
    std::vector<Rect> covered;
    std::function<void()> overMap;
    if (showsApproach(page, scene.data, scene.lookAt.has_value()))
        covered.push_back(approachBox(canvas.width(), canvas.height()));
    std::vector<Rect> corners;
    if (withHsi) {
        corners = lowerCorners(canvas.textMeasure(), canvas.area(), data,
                               mapTextPx(canvas.width(), canvas.height()), scene.trustMarks);
        const HsiOverMap place{scene.viewport.aircraft(), corners};
        const std::vector<Rect> labels =
            hsiLabelsOverMap(canvas.textMeasure(), canvas.area(), data, place);
        covered.insert(covered.end(), labels.begin(), labels.end());
        overMap = [&, place] { paintHsiOverMap(canvas, data, place, colors_); };
    }
    // Pages that are not drawn yet show the map: better than nothing in flight.
    MapContent map{
        .data = data,
        .colors = colors_,
        .view = {scene.viewport, center, turns(page) ? scene.upTrueDeg : 0, canvas.area()},
        .turns = turns(page),
        .moved = scene.lookAt.has_value(),
        .trustMarks = scene.trustMarks,
        .sparseNote = scene.sparseNote,
        .measure = scene.measure,
        .band = scene.band,
        .labels = scene.labels,
        .overMap = overMap,
        .covered = covered,
        .alarms = scene.alarms};
    if (scene.feeds != nullptr)
        scene.feeds->addTo(map);
    paintMap(canvas, map);
}

}  // namespace korvel
