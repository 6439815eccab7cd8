#include "display/PagePainter.h"

#include <string>
#include <vector>

#include "display/AlarmBoxes.h"
#include "display/EfisPage.h"
#include "display/HsiPage.h"
#include "display/MapColorCache.h"
#include "display/MapLook.h"
#include "display/MapPainter.h"
#include "display/SatellitePage.h"
#include "display/StatusScreen.h"

namespace korvel {

bool PagePainter::turns(PageId page) { return page != PageId::NorthUp; }

bool PagePainter::isMap(PageId page) {
    return page == PageId::Map || page == PageId::NorthUp || page == PageId::MapHsi;
}

void PagePainter::paint(Canvas& canvas, PageId page, const PageScene& scene) const {
    paintPage(canvas, page, scene);
    const std::vector<std::string>& alarms = scene.data.alarms;
    if (alarms.empty())
        return;
    const double textPx = mapTextPx(canvas.width(), canvas.height());
    const AlarmBoxes boxes(canvas, alarms, textPx, isMap(page));
    paintAlarms(canvas, alarms, boxes, colors_, textPx);
}

void PagePainter::paintPage(Canvas& canvas, PageId page, const PageScene& scene) const {
    const CockpitData& data = scene.data;
    if (page == PageId::Satellite) {
        paintSatellitePage(canvas, data, colors_);
        return;
    }
    if (page == PageId::Attitude) {
        paintAttitudePage(canvas, scene.attitude, colors_);
        return;
    }
    if (page == PageId::FlightPlan) {
        paintFlightPlanPage(canvas, data, scene.plan, colors_);
        return;
    }
    // Without an aircraft the map still shows what the pilot looks for.
    const bool looksElsewhere = scene.lookAt && isMap(page);
    if (!data.position && !data.lastPosition && !looksElsewhere) {
        paintStatusScreen(canvas, data, colors_);
        return;
    }
    if (page == PageId::NearestAirport) {
        paintNearestPage(canvas, data, scene.nearest, colors_);
        return;
    }
    if (page == PageId::Hsi) {
        paintHsiPage(canvas, data, scene.viewport, colors_);
        return;
    }
    if (page == PageId::Efis) {
        paintEfisPage(canvas, data, colors_);
        return;
    }
    track_.update(data.track);
    // Around the aircraft, so not while the pilot looks elsewhere.
    const bool withHsi = page == PageId::MapHsi && data.position && !scene.lookAt;
    std::vector<Rect> covered;
    std::function<void()> overMap;
    if (withHsi) {
        covered = hsiLabelsOverMap(canvas, data, scene.viewport);
        overMap = [&] { paintHsiOverMap(canvas, data, scene.viewport, colors_); };
    }
    // Pages that are not drawn yet show the map: better than nothing in flight.
    paintMap(canvas,
             {.data = data,
              .viewport = scene.viewport,
              .upTrueDeg = turns(page) ? scene.upTrueDeg : 0,
              .turns = turns(page),
              .lookAt = scene.lookAt,
              .places = scene.places,
              .track = &track_,
              .measure = scene.measure,
              .overMap = overMap,
              .covered = covered},
             colors_);
}

}  // namespace korvel
