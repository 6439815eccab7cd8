#pragma once

#include "cockpit/CockpitData.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {

inline GeoPoint atDegrees(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

/// In flight near Munich with a good fix.
inline CockpitData flying() {
    CockpitData data;
    data.position = atDegrees(48.3537, 11.7861);
    data.groundSpeedKt = 118.4;
    data.trackMagDeg = 83;
    data.trackTrueDeg = 86;
    data.altitudeFt = 5500;
    data.receiverActive = true;
    data.fixQuality = 1;
    data.fix3D = true;
    data.satsInUse = 8;
    data.now = {2024, 5, 1, 14, 5, 7};
    return data;
}

/// The same flight on a leg to Augsburg, a little left of its course.
inline CockpitData navigating() {
    CockpitData data = flying();
    data.activeKey = "a.EDMA";
    data.activeName = "AUGSBURG";
    data.activeWaypoint = atDegrees(48.4253, 10.9317);
    data.legStart = data.position;
    data.bearingMagDeg = 91.4;
    data.distanceNm = 34.26;
    data.crossTrackNm = 1.26;
    data.desiredTrackMagDeg = 88.6;
    data.offCourseDeg = 2.1;
    data.targetAltitudeFt = 3500;
    data.verticalSpeedFpm = 447;
    data.requiredVerticalSpeedFpm = -523;
    data.variationDeg = -3.26;
    data.utcSecondOfDay = 12 * 3600 + 5 * 60 + 7;
    data.sunriseSecondOfDay = (5 * 60 + 13) * 60;
    data.sunsetSecondOfDay = (21 * 60 + 17) * 60;
    data.flightTimeSec = 3725;
    data.turnRateDegPerSec = 1.5;
    data.bankDeg = 9.2;
    data.pitchDeg = 2.1;
    data.aircraft.emplace();
    data.fuelLeft = 72.8;  // at 25 an hour
    PlanView plan;
    plan.rows.resize(3);
    plan.rows[1].ident = "EDMA";
    plan.rows[2].legNm = 70;
    plan.active = 1;
    data.plan = std::make_shared<const PlanView>(plan);
    NearAirport near;
    near.ident = "EDMO";
    near.distanceNm = 12.36;
    near.bearingMagDeg = 224.6;
    data.nearAirports = std::make_shared<const std::vector<NearAirport>>(1, near);
    return data;
}

/// Four miles before a runway to the north-east, on the glide path.
inline CockpitData approaching() {
    CockpitData data = navigating();
    data.trackMagDeg = data.trackTrueDeg = 45;
    LandingRunway runway;
    runway.airport = "EDMA";
    runway.id = "05";
    runway.courseTrueDeg = 45;
    runway.thresholdFt = 1500;
    PointAtRadialDistance(data.position->lat, data.position->lon, 4 / kNmPerRadian, 45 * kDegToRad,
        runway.threshold.lat, runway.threshold.lon);
    runway.farEnd = runway.threshold;
    data.approach = {.runway = runway, .toGoNm = 4};
    data.targetAltitudeFt = data.altitudeFt = 2824;
    return data;
}

/// "W0", "W1" and so on to the north, 30 NM apart, flown to the active one.
inline std::shared_ptr<PlanView> planOf(std::size_t rows, std::optional<std::size_t> active) {
    auto plan = std::make_shared<PlanView>();
    for (std::size_t i = 0; i < rows; ++i) {
        PlanRow& row = plan->rows.emplace_back();
        row.ident = row.name = std::string("W").append(std::to_string(i));
        row.position = atDegrees(48.3537 + 0.5 * static_cast<double>(i), 11.7861);
        if (i > 0) {
            row.legNm = 30;
            row.courseMagDeg = 358;
            plan->totalNm += 30;
        }
    }
    plan->active = active;
    return plan;
}

/// The same flight, `seconds` after the fix was lost.
inline CockpitData lost(int seconds) {
    CockpitData data;
    data.lastPosition = flying().position;
    data.positionAgeSec = seconds;
    data.receiverActive = true;
    data.now = flying().now;
    return data;
}

}  // namespace korvel
