#include <limits>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "nav/leg/Simulator.h"
#include "nav/leg/VerticalSpeed.h"

namespace korvel { namespace {

TEST(Simulator, FliesByDeadReckoning) {
    Simulator simulator;
    const Variation tenEast{.databaseDeg = 10.0};
    simulator.start({0.0, 0.0}, 80, 120.0, 3000, 1000);
    for (std::int64_t now = 1000; now <= 61000; now += 500) {
        simulator.step(now, tenEast);
        simulator.updateTrack(tenEast);
    }
    EXPECT_NEAR(simulator.position().lat, 0.0, 1e-9);
    EXPECT_NEAR(simulator.position().lon * kNmPerRadian, 2.0, 1e-9) << "120 kt for a minute";
    EXPECT_EQ(simulator.trackMag(), 80.0);
    simulator.setHeading(Simulator::kNoHeading);
    const GeoPoint stopped = simulator.position();
    simulator.step(100000, tenEast);
    EXPECT_EQ(simulator.position(), stopped);
}

TEST(Simulator, IsCarriedByTheWind) {
    Simulator simulator;
    simulator.start({0.0, 0.0}, 90, 100.0, 3000, 1000);
    simulator.setWind({.fromTrueDeg = 180, .speedKt = 100});
    for (std::int64_t now = 1000; now <= 61000; now += 500) simulator.step(now, {});
    simulator.updateTrack({});
    EXPECT_NEAR(simulator.position().lat * kNmPerRadian, 100.0 / 60, 1e-3);
    EXPECT_NEAR(simulator.position().lon * kNmPerRadian, 100.0 / 60, 1e-3);
    EXPECT_EQ(simulator.trackMag(), 45);
    EXPECT_NEAR(*simulator.aircraft().groundSpeedKt, 141.4, 0.1);
    EXPECT_EQ(simulator.speedKt(), 100) << "through the air";
}

TEST(Simulator, ClimbsAtOnceAndDescendsAsLateAsItCan) {
    Simulator simulator;
    simulator.start({0.0, 0.0}, 90, 120.0, 3000, 0);
    std::int64_t now = 500;
    const auto altitudeAfterMinute = [&](std::optional<std::int32_t> wantedFt, double distanceNm) {
        simulator.wantAltitude(wantedFt, distanceNm);
        simulator.step(now, {});
        simulator.step(now += 60000, {});
        return simulator.altitudeFt();
    };
    EXPECT_EQ(altitudeAfterMinute(9000, 50), 3000) << "it does not follow the plan";
    simulator.setFollowsPlan(true);
    EXPECT_EQ(altitudeAfterMinute(9000, 50), 3700);
    EXPECT_EQ(altitudeAfterMinute(3800, 1), 3800);
    EXPECT_EQ(altitudeAfterMinute(2800, 5.1), 3800) << "two minutes, four miles and one more";
    EXPECT_EQ(altitudeAfterMinute(2800, 4.9), 3300);
    EXPECT_EQ(altitudeAfterMinute(std::nullopt, 4.9), 3300);
}

TEST(Simulator, TrackDoesNotFlickerBetweenTwoDegrees) {
    Simulator simulator;
    simulator.start({0.5, 0.5}, 181, 600.0, 0, 0);
    std::int64_t now = 500;
    simulator.step(now, {});
    const auto trackAfter = [&](std::int64_t ms) {
        simulator.step(now += ms, {});
        simulator.updateTrack({});
        return simulator.trackMag();
    };
    constexpr std::tuple<std::int32_t, double> kLegs[] = {
        {181, 181}, {182, 182}, {181, 182}, {182, 182}, {183, 183}, {181, 181}, {0, 360}, {270, 270}};
    for (const auto& [heading, shown] : kLegs) {
        simulator.setHeading(heading);
        EXPECT_EQ(trackAfter(500), shown) << heading;
    }
    simulator.setSpeed(2.9);
    simulator.setHeading(90);
    EXPECT_EQ(trackAfter(600000), 270) << "too slow to have a track";
    simulator.losePosition();
    EXPECT_EQ(trackAfter(500), kNoAngle) << "no speed, no step";
    simulator.setSpeed(0);
    EXPECT_EQ(trackAfter(500), 360) << "standing still it points north";
}

TEST(Simulator, SteersAfterFiveSecondsByAtMostFiveDegrees) {
    Simulator simulator;
    simulator.start({0.5, 0.5}, 90, 600.0, 0, 1);
    simulator.step(1, {});
    simulator.step(501, {});
    simulator.updateTrack({});
    ASSERT_EQ(simulator.trackMag(), 90);
    constexpr std::tuple<std::int64_t, double, std::int32_t> kCases[] = {{5000, 180, 90}, {5001, 180, 95},
        {5501, kNoAngle, 95}, {6001, 94, 99}, {6501, 86, 95}, {7001, 90.4, 95}, {7501, 350, 90}};
    for (const auto& [now, bearing, heading] : kCases) {
        simulator.steer(now, bearing);
        EXPECT_EQ(simulator.headingMag(), heading) << now;
    }
    simulator.setSteering(false);
    simulator.steer(9000, 180);
    EXPECT_EQ(simulator.headingMag(), 90);
}

TEST(VerticalSpeed, IsTheSlopeOfTheLastSeconds) {
    const auto after = [](std::int32_t from, std::int32_t to) {
        VerticalSpeed speed;
        EXPECT_FALSE(speed.feetPerMinute());
        for (int i = 0; i <= 6; ++i) speed.add(1 + 500 * i, from + (to - from) / 6 * i);
        return speed.feetPerMinute();
    };
    EXPECT_EQ(after(1000, 1030), 600);
    EXPECT_EQ(after(1030, 1000), -600);
    EXPECT_EQ(after(0, 4998), 99960);
    EXPECT_FALSE(after(0, 5004)) << "nothing climbs so fast";
    EXPECT_FALSE(after(0, std::numeric_limits<std::int32_t>::max()));
    EXPECT_FALSE(after(0, std::numeric_limits<std::int32_t>::min()));
    VerticalSpeed speed;
    for (int i = 0; i <= 6; ++i) speed.add(1 + 500 * i, 1000);
    speed.add(3501, std::nullopt);
    speed.add(4001, 1100);
    EXPECT_FALSE(speed.feetPerMinute()) << "begins anew behind a gap";
}

}}  // namespace korvel
