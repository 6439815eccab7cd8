#include "cockpit/AlarmWatch.h"

#include "cockpit/ActiveApproach.h"
#include "cockpit/SentinelValues.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "nav/leg/ActiveNavigation.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {
namespace {

FlightSituation::Destination describe(const DatabaseRecord& record, GeoPoint from) {
    return {.name = std::string(record.ident.view()),
            .distanceNm = DistanceNm(from, record.position),
            .airport = record.GetKind() == kAirportKind,
            .elevationFt = elevationOf(record)};
}

}  // namespace

void AlarmWatch::update(const Settings& settings, const ActiveNavigation& navigation,
                        const ActiveApproach& approach, const DatabaseRecord* destination,
                        std::int64_t nowMs) {
    const ActiveNavigation::Aircraft& present = navigation.present();
    situation_ = {.groundSpeedKt = present.groundSpeedKt,
                  .altitudeFt = present.altitudeFt,
                  .gearWarning = settings.gearWarning,
                  .approachSpeedKt = settings.approachSpeedKt};
    const NavigationState state = navigation.state();
    if (intercept_.update(state, situation_.fullScaleNm))
        situation_.crossTrackNm = known(state.crossTrackNm, kNoDistanceNm);
    if (destination != nullptr)
        situation_.destination = describe(*destination, present.position);
    approach.describe(situation_, present.position);
    board_.update(nowMs);
}

void AlarmWatch::forget() {
    intercept_.forget();
    board_.forget();
}

}  // namespace korvel
