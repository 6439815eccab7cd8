#include "cockpit/FlightData.h"

#include "cockpit/CockpitData.h"
#include "cockpit/Flight.h"
#include "cockpit/SentinelValues.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

void fillSimulated(CockpitData& data, const ActiveNavigation::Aircraft& present,
                   const Variation& variation) {
    data.simulated = true;
    data.status.clear();
    data.position = known(present.position);
    data.lastPosition = data.position;
    data.positionAgeSec = 0;
    data.groundSpeedKt = present.groundSpeedKt;
    data.trackMagDeg = known(present.trackMag, kNoAngle);
    data.trackTrueDeg = known(variation.MagneticToTrue(present.trackMag), kNoAngle);
    data.altitudeFt = present.altitudeFt;
}

/// Nothing while nearly standing, and in the last moments, when a foot more would be a dive.
std::optional<int> requiredVerticalSpeed(const CockpitData& data) {
    constexpr double kSlowestKt = 30;
    constexpr double kShortestMinutes = 0.1;
    if (!data.pathAltitudeFt || !data.altitudeFt || !data.distanceNm || !data.groundSpeedKt ||
        *data.groundSpeedKt < kSlowestKt)
        return std::nullopt;
    const double minutes = *data.distanceNm / *data.groundSpeedKt * 60;
    if (minutes < kShortestMinutes)
        return std::nullopt;
    return RoundToInt((*data.pathAltitudeFt - *data.altitudeFt) / minutes);
}

void fillLeg(CockpitData& data, const ActiveNavigation& navigation, const Variation& variation) {
    const NavigationState state = navigation.state();
    if (state.activeKey.empty() && !navigation.directLeg())
        return;
    data.activeKey = state.activeKey;
    data.activeName = state.activeName;
    data.activeWaypoint = known(state.activeWaypoint);
    data.legStart = known(state.legStart);
    data.bearingMagDeg = known(state.bearingMag, kNoAngle);
    data.distanceNm = known(state.distanceNm, kNoDistanceNm);
    data.crossTrackNm = known(state.crossTrackNm, kNoDistanceNm);
    data.desiredTrackTrueDeg = known(state.desiredTrack, kNoAngle);
    data.desiredTrackMagDeg = known(variation.TrueToMagnetic(state.desiredTrack), kNoAngle);
    data.obsCourseMagDeg = known(state.obsCourse, kNoAngle);
    data.offCourseDeg = known(state.offCourseDeg, kNoAngle);
    data.targetAltitudeFt = known(state.pathTargetAltFt);
    data.pathAltitudeFt = known(state.pathAltFt);
    data.directLeg = navigation.directLeg();
}

}  // namespace

void fillFlightData(CockpitData& data, const Flight& flight, const Variation& variation) {
    if (flight.navigation().simulated())
        fillSimulated(data, flight.navigation().present(), variation);
    data.suspended = flight.navigation().suspended();
    data.recording = flight.navigation().records();
    data.flightTimeSec = flight.flightTimeSec();
    data.plan = flight.shownPlan();
    data.track = flight.track().track();
    data.trackSlots = data.track ? data.track->read()->slots.size() : 0;
    if (!data.position)
        return;
    data.alarms = flight.alarms().shown();
    if (variation.isKnown())
        data.variationDeg = variation.inForceDeg();
    data.verticalSpeedFpm = flight.verticalSpeedFpm();
    fillLeg(data, flight.navigation(), variation);
    flight.approach().collect(data, variation);
    if (!data.approach)
        data.requiredVerticalSpeedFpm = requiredVerticalSpeed(data);
}

}  // namespace korvel
