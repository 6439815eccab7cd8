#include <array>
#include <cmath>
#include <random>

#include "TempFolder.h"
#include "nav/PlacesFixture.h"
#include "nav/leg/ActiveNavigation.h"
#include "nav/plan/RouteEntry.h"
#include "nav/track/TrackRecorder.h"

namespace korvel { namespace {

using Vector = std::array<double, 3>;

Vector vectorOf(GeoPoint p) {
    return {std::cos(p.lat) * std::cos(p.lon), std::cos(p.lat) * std::sin(p.lon), std::sin(p.lat)};
}
Vector cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
double dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

/// Distance from the plane of the great circle, positive to the left.
double crossTrackByVectors(GeoPoint from, GeoPoint to, GeoPoint p) {
    const Vector normal = cross(vectorOf(from), vectorOf(to));
    return std::asin(dot(normal, vectorOf(p)) / std::sqrt(dot(normal, normal))) * kNmPerRadian;
}

class ActiveNavigationTest : public PlacesFixture {
 protected:
    ActiveNavigationTest() {
        place("f.A", 0, 0);
        place("f.B", 0, 0.5);
        place("f.C", 0, 1);
        place("v.FAR", 60, 10);
        place("v.TWO", 0, 0.2);
        place("f.TWO", 0, 5);
    }
    void fly(std::string_view route) {
        RouteEntry entry(database_, fixes_, std::nullopt);
        *plan_.lock() = FlightPlan(entry.EnterRoute(route, false).entries);
        navigation_.planChanged();
    }
    /// One tick with the aircraft there.
    NavigationState at(double latDeg, double lonDeg, double trackMag = 90.0) {
        clock_.advanceMs(500);
        aircraft_.position = degrees(latDeg, lonDeg);
        aircraft_.trackMag = trackMag;
        navigation_.NavUpdate(aircraft_);
        return navigation_.state();
    }

    TempFolder folder_;
    GuardedPlan plan_;
    Simulator simulator_;
    TrackRecorder track_{clock_};
    FlightLog log_{clock_, folder_ / "log.txt", [] { return std::string(); }};
    ActiveNavigation navigation_{{clock_, database_, fixes_, plan_, simulator_, track_, log_}};
    ActiveNavigation::Aircraft aircraft_{.groundSpeedKt = 100.0, .altitudeFt = 5000};
};

TEST_F(ActiveNavigationTest, WithoutAPositionNothingIsKnown) {
    EXPECT_EQ(navigation_.DirectTo("A", ""), "No gps signal!");
    fly("A B");
    at(0, 0.2);
    EXPECT_NE(navigation_.state().distanceNm, kNoDistanceNm);
    navigation_.NavUpdate({});
    const NavigationState state = navigation_.state();
    EXPECT_EQ(std::tuple(state.bearingMag, state.distanceNm, state.crossTrackNm, state.offCourseDeg),
        std::tuple(1000.0, 30001.0, 30001.0, 1000.0));
}

TEST_F(ActiveNavigationTest, TheSimulatedAircraftTurnsToWhatLiesAheadFromItsFirstTick) {
    for (const auto& [heading, chosen] : {std::pair{90, "f.C"}, {270, "f.A"}, {Simulator::kNoHeading, "f.A"}}) {
        simulator_.start(degrees(0, 0.7), heading, 100, 3000, clock_.tickMs());
        fly("A B C");
        navigation_.NavUpdate({});
        EXPECT_EQ(navigation_.state().activeKey, chosen) << heading;
    }
}

TEST_F(ActiveNavigationTest, CrossTrackAgreesWithVectors) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int i = 0; i < 200; ++i) {
        const GeoPoint start = degrees(60 + 20 * unit(random), 10 + 60 * unit(random));
        const GeoPoint far = degrees(60, 10);
        if (DistanceNm(start, far) < 60) continue;
        aircraft_.position = start;
        navigation_.NavUpdate(aircraft_);
        ASSERT_EQ(navigation_.DirectTo("FAR", ""), "Direct to FAR name");
        const double lat = start.lat * kRadToDeg + 0.4 * unit(random);
        const double lon = start.lon * kRadToDeg + 0.4 * unit(random);
        const NavigationState state = at(lat, lon);
        const double expected = crossTrackByVectors(start, far, degrees(lat, lon));
        EXPECT_NEAR(state.crossTrackNm, expected, 1e-6);
        EXPECT_NEAR(state.offCourseDeg, std::asin(expected / DistanceNm(degrees(lat, lon), far)) * kRadToDeg, 1e-6);
        EXPECT_NEAR(state.desiredTrack, TrueCourseDeg(start, far), 1e-9);
    }
}

TEST_F(ActiveNavigationTest, CrossTrackIsNoLargerThanTheDistance) {
    at(0, 0);
    navigation_.DirectTo("B", "");
    for (const double lat : {0.4, -0.4}) {
        const NavigationState state = at(lat, 0.55);
        EXPECT_NEAR(state.crossTrackNm, std::copysign(std::min(24.0, state.distanceNm), lat), 0.01);
        EXPECT_LE(std::abs(state.crossTrackNm), state.distanceNm);
    }
    const NavigationState beyond = at(0.1, 3.0);
    EXPECT_LT(beyond.crossTrackNm, beyond.distanceNm);
}

TEST_F(ActiveNavigationTest, DirectToWithACourse) {
    at(0, 0);
    for (const char* const bad : {"361", "abc", "-1", "@"})
        EXPECT_EQ(navigation_.DirectTo("B", bad), "Invalid OBS!") << bad;
    EXPECT_EQ(navigation_.DirectTo("NOPE", "90"), "Not found!");
    EXPECT_EQ(navigation_.state().activeKey, "");
    for (const auto& [text, course] : {std::pair{"0", 0.0}, std::pair{"360", 360.0}}) {
        EXPECT_EQ(navigation_.DirectTo("B", text), "Direct to B name");
        EXPECT_EQ(navigation_.state().obsCourse, course);
    }
    ActiveNavigation::Options options;
    options.variation.databaseDeg = 10.0;
    navigation_.setOptions(options);
    navigation_.DirectTo("f.B", "80");
    const NavigationState state = at(0.05, 0.1);
    EXPECT_NEAR(state.desiredTrack, 90.0, 1e-9);
    EXPECT_NEAR(state.legStart.lon * kRadToDeg, 0.5 + 20.0 / 60, 1e-9) << "beyond the waypoint";
    EXPECT_NEAR(state.crossTrackNm, 3.0, 1e-3) << "left of the course is positive";
    EXPECT_NEAR(state.bearingMag, TrueCourseDeg(degrees(0.05, 0.1), degrees(0, 0.5)) - 10, 1e-9);
}

TEST_F(ActiveNavigationTest, DirectToFliesToTheOneThatWasPointedAt) {
    at(0, 0);
    navigation_.DirectTo("TWO", "");
    EXPECT_EQ(navigation_.state().activeKey, "v.TWO") << "the nearest";
    navigation_.DirectTo("TWO", "", kNoAltitudeFt, degrees(0, 5));
    EXPECT_EQ(navigation_.state().activeKey, "f.TWO");
    EXPECT_NEAR(navigation_.state().legStart.lon, 0, 1e-9) << "from the aircraft all the same";
}

TEST_F(ActiveNavigationTest, ThePlanTakesOverWithinOneMileOfItsOwnWaypoint) {
    fly("A B C");
    EXPECT_EQ(at(0, 0.3).activeKey, "f.B");
    navigation_.DirectTo("B", "");
    EXPECT_EQ(at(0, 0.5 - 1.01 / 60).activeKey, "f.B");
    EXPECT_TRUE(navigation_.directLeg());
    EXPECT_EQ(at(0, 0.5 - 0.99 / 60).activeKey, "f.C");
    EXPECT_FALSE(navigation_.directLeg());
    EXPECT_NEAR(navigation_.state().legStart.lon * kRadToDeg, 0.5, 1e-9);

    navigation_.DirectTo("C", "90");
    EXPECT_EQ(at(0, 1).activeKey, "f.C") << "a course keeps the direct leg";
    EXPECT_TRUE(navigation_.directLeg());
    navigation_.DirectTo("FAR", "");
    at(60, 10);
    EXPECT_EQ(navigation_.state().activeKey, "v.FAR") << "it is not in the plan";
    const auto announced = navigation_.announcement().number;
    navigation_.ClearNavigation();
    EXPECT_EQ(navigation_.state().activeKey, "");
    plan_.lock()->reset();
    EXPECT_EQ(at(0, 0).activeKey, "");
    EXPECT_EQ(navigation_.announcement().number, announced);
}

TEST_F(ActiveNavigationTest, GoesToAPointOnACourse) {
    at(0, 0);
    EXPECT_EQ(navigation_.GoToWithCourse(degrees(10, 20), 90.0, "RWY 09"), "");
    NavigationState state = at(9.95, 19.9);
    EXPECT_EQ(state.activeName, "RWY 09");
    EXPECT_EQ(state.activeKey, "");
    EXPECT_NEAR(DistanceNm(state.legStart, state.activeWaypoint), 20.0, 1e-9);
    EXPECT_NEAR(TrueCourseDeg(state.activeWaypoint, state.legStart), 270.0, 1e-9);
    EXPECT_NEAR(state.crossTrackNm, -3.0, 0.02) << "right of the course";
    EXPECT_EQ(navigation_.announcement().name, "RWY 09");
    EXPECT_EQ(navigation_.GoToWithCourse(degrees(91, 0), 90.0, "X"), "Not found!");
    EXPECT_EQ(navigation_.GoToWithCourse(degrees(1, 0), NAN, "X"), "Invalid OBS!");
    EXPECT_EQ(navigation_.state().activeName, "RWY 09");
}

TEST_F(ActiveNavigationTest, DescendsToTheNextAltitudeOfThePlan) {
    fly("A B C@20");
    aircraft_.altitudeFt = 5000;
    NavigationState state = at(0, 0);  // 60 NM before C, 3000 ft above
    EXPECT_EQ(state.activeKey, "f.B");
    EXPECT_EQ(state.pathTargetAltFt, 2000);
    EXPECT_NEAR(state.pathDistanceNm, 60.0, 1e-6);
    EXPECT_NEAR(std::tan(state.pathAngle), -3000 / (60 * 6076.115485564304), 1e-12);
    EXPECT_NEAR(state.pathAltFt, 3500, 1) << "half way down at B";
    aircraft_.altitudeFt = 4500;
    EXPECT_NEAR(at(0, 0.25).pathAltFt, 3750, 1) << "the slope stays, from where the aircraft is";
    state = at(0, 0.5);
    EXPECT_EQ(state.activeKey, "f.C");
    EXPECT_EQ(state.pathAltFt, 2000) << "at the end of the path";
    EXPECT_EQ(navigation_.announcement().altitudeFt, 2000);
    navigation_.DirectTo("A", "", 1500);
    EXPECT_EQ(navigation_.state().pathAltFt, 1500);
    EXPECT_NEAR(at(0, 0.25).pathDistanceNm, 15.0, 1e-6);
    fly("A B");
    EXPECT_EQ(at(0, 0.2).pathTargetAltFt, kNoAltitudeFt);
    aircraft_.altitudeFt.reset();
    fly("A B C@20");
    EXPECT_EQ(at(0, 0.2).pathTargetAltFt, kNoAltitudeFt) << "no altitude to descend from";
}

TEST_F(ActiveNavigationTest, RecordsTheTrackAndTheFlight) {
    ActiveNavigation::Options options{.tracking = true};
    const auto flyOn = [&](int ticks) {
        for (int i = 0; i < ticks; ++i) at(0, aircraft_.position.lon * kRadToDeg + 0.001);
    };
    aircraft_.position = degrees(0, 0);
    flyOn(1);
    EXPECT_EQ(track_.track(), nullptr) << "tracking is off";
    navigation_.setOptions(options);
    flyOn(11);
    navigation_.setSuspended(true);
    flyOn(20);
    navigation_.setSuspended(false);
    flyOn(1);
    const auto recording = track_.track()->read();
    ASSERT_EQ(recording->slots.size(), 4U);
    EXPECT_FALSE(recording->slots[2]) << "a break where recording was interrupted";
    EXPECT_EQ(recording->slots[3]->groundSpeedKt, 100);
    EXPECT_EQ(recording->slots[3]->altitudeFt, 5000);
    EXPECT_TRUE(log_.inFlight());
}

TEST_F(ActiveNavigationTest, TheTrackBreaksAfterMoreThan30SecondsWithoutAPosition) {
    navigation_.setOptions({.tracking = true});
    double lon = 0;
    const auto slotsAfterGap = [&](int ticksWithout) {
        clock_.advanceMs(6000);
        at(0, lon += 0.01);
        for (int i = 0; i < ticksWithout; ++i) {
            clock_.advanceMs(500);
            navigation_.NavUpdate({});
        }
        at(0, lon += 0.01);
        return track_.track()->read()->slots.size();
    };
    EXPECT_EQ(slotsAfterGap(1), 1U) << "too soon for a second point";
    EXPECT_EQ(slotsAfterGap(59), 3U) << "30 s: still one line";
    EXPECT_EQ(slotsAfterGap(60), 6U) << "30.5 s: a point, a break, a point";
    EXPECT_FALSE(track_.track()->read()->slots[4]);
    clock_.advanceMs(31000);  // asleep, without ticks
    at(0, lon += 0.01);
    EXPECT_FALSE(track_.track()->read()->slots[6]);
}

TEST_F(ActiveNavigationTest, TheSimulatorFindsItsWay) {
    fly("A B C");
    simulator_.start(degrees(0.3, 0.4), 0, 300.0, 3000, clock_.tickMs());
    double nearestNm = 100;
    for (int i = 0; i < 2400; ++i) {
        at(50, 50);  // what the receiver says does not count
        nearestNm = std::min(nearestNm, DistanceNm(simulator_.position(), degrees(0, 1)));
    }
    EXPECT_LT(nearestNm, 1.0);
    EXPECT_EQ(navigation_.present().altitudeFt, 3000);
    EXPECT_FALSE(log_.inFlight()) << "simulated flights are not logged";
}

}}  // namespace korvel
