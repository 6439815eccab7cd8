#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "nav/traffic/TrafficConflict.h"

namespace korvel { namespace {

/// `nm` from 48 N 11 E towards a bearing.
MovingAircraft at(double bearingDeg, double nm, double trackDeg, double kt, std::optional<double> ft, double fpm = 0) {
    MovingAircraft aircraft{.trackTrueDeg = trackDeg, .groundSpeedKt = kt, .heightFt = ft, .verticalSpeedFpm = fpm};
    PointAtRadialDistance(48 * kDegToRad, 11 * kDegToRad, nm / kNmPerRadian, bearingDeg * kDegToRad,
        aircraft.position.lat, aircraft.position.lon);
    return aircraft;
}

TEST(TrafficConflict, CountsTheTimeToTheClosestApproachAndTheHeight) {
    using enum TrafficLevel;
    const MovingAircraft north = at(0, 0, 0, 100, 3000);
    const struct {
        const char* what;
        MovingAircraft other;
        TrafficLevel level;
    } cases[] = {
        {"far away", at(0, 8, 180, 100, 3000), Far},
        {"head on, 106 s", at(0, 5.9, 180, 100, 3000), Near},
        {"head on, 50 s to half a mile, 40 to a mile", at(0, 3.3, 180, 100, 3000), Caution},
        {"head on, 23 s to half a mile", at(0, 1.8, 180, 100, 3500), Alert},
        {"the same, 650 ft higher", at(0, 1.8, 180, 100, 3650), Caution},
        {"the same, 900 ft higher", at(0, 1.8, 180, 100, 3900), Near},
        {"the same, descending to it", at(0, 1.8, 180, 100, 3900, -1000), Alert},
        {"descending through it", at(0, 1.8, 180, 100, 4500, -4800), Alert},
        {"of unknown height", at(0, 1.8, 180, 100, std::nullopt), Caution},
        {"flies away", at(0, 1.8, 0, 160, 3000), Near},
        {"beside, in formation", at(90, 0.4, 0, 100, 3000), Alert},
        {"crosses behind", at(90, 2, 200, 100, 3000), Near},
        {"overtaken", at(0, 1.2, 0, 40, 3000), Caution},
        {"near, but 1300 ft below", at(90, 3, 0, 100, 1700), Far},
    };
    for (const auto& each : cases) EXPECT_EQ(trafficLevel(north, each.other), each.level) << each.what;
    EXPECT_EQ(trafficLevel({.position = north.position}, {.position = at(0, 0.9, 0, 0, 0).position}), Caution);
}

TEST(TrafficConflict, ReckonsOn) {
    const MovingAircraft east = at(0, 0, 90, 120, 0);
    EXPECT_NEAR(DistanceNm(east.position, movedOn(east, 30)), 1, 1e-6);
    EXPECT_NEAR(TrueCourseDeg(east.position, movedOn(east, 30)), 90, 0.1);
    EXPECT_EQ(movedOn({.position = east.position, .groundSpeedKt = 100}, 30), east.position);
}

}}  // namespace korvel
