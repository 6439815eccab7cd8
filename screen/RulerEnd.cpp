#include "screen/RulerEnd.h"

#include <cmath>

#include "geo/Geodesy.h"
#include "map/PlaceHit.h"
#include "navdb/NavDatabase.h"
#include "screen/TapThing.h"

namespace korvel {
namespace {

bool isOnAircraft(Point finger, const RulerGround& ground) {
    if (!ground.data.position)
        return false;
    const Point aircraft = ground.projection.project(*ground.data.position);
    return std::hypot(aircraft.x - finger.x, aircraft.y - finger.y) <= kFingerPixels;
}

}  // namespace

MeasureEnd rulerEndAt(Point finger, const RulerGround& ground) {
    MeasureEnd end{.position = ground.projection.unproject(finger)};
    const auto found =
        placesAt(ground.places, ground.projection, ground.rangeNm, finger, kFingerPixels);
    if (!found.empty()) {
        end.position = found.front()->place.position;
        end.name = found.front()->place.ident.view();
    } else if (isOnAircraft(finger, ground)) {
        end.aircraft = true;
        end.position = *ground.data.position;
        end.variationDeg = ground.data.variationDeg;
        return end;
    }
    end.variationDeg = ground.database.variationAt(end.position);
    return end;
}

}  // namespace korvel
