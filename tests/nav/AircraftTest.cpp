#include <cmath>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "nav/aircraft/FuelTank.h"
#include "nav/aircraft/PlannedTimes.h"
#include "nav/aircraft/WindEstimator.h"

namespace korvel { namespace {

TEST(Wind, CarriesAlongAndAcross) {
    const struct {
        double course;
        std::optional<Wind> wind;
        double speed;
    } cases[] = {{90, std::nullopt, 100}, {90, Wind{90, 20}, 80}, {90, Wind{270, 20}, 120}, {90, Wind{0, 60}, 80},
        {90, Wind{180, 60}, 80}};
    for (const auto& each : cases)
        EXPECT_NEAR(groundSpeedKt(each.course, 100, each.wind).value_or(-1), each.speed, 1e-9);
    EXPECT_FALSE(groundSpeedKt(90, 100, Wind{90, 96}));
    EXPECT_FALSE(groundSpeedKt(90, 100, Wind{0, 100}));
}

// At 100 knots through the air in this wind, over so many degrees of headings from the north on.
void turn(WindEstimator& estimator, const Wind& wind, int degrees, std::int64_t fromMs) {
    for (int heading = 0; heading <= degrees; heading += 3) {
        const double east = 100 * std::sin(heading * kDegToRad) - wind.speedKt * std::sin(wind.fromTrueDeg * kDegToRad);
        const double north =
            100 * std::cos(heading * kDegToRad) - wind.speedKt * std::cos(wind.fromTrueDeg * kDegToRad);
        const double noise = heading % 2 == 0 ? 0.4 : -0.4;
        estimator.add(fromMs + heading * 333, PositiveMod(std::atan2(east, north) * kRadToDeg, 360),
            std::hypot(east, north) + noise);
    }
}

TEST(WindEstimator, HalfACircleTellsTheWindForHalfAnHour) {
    WindEstimator estimator;
    const Wind wind{250, 22};
    turn(estimator, wind, 150, 1000);
    EXPECT_FALSE(estimator.estimate(60'000)) << "too short an arc";
    turn(estimator, wind, 200, 400'000);
    const auto estimate = estimator.estimate(470'000);
    ASSERT_TRUE(estimate);
    EXPECT_NEAR(estimate->wind.fromTrueDeg, 250, 3);
    EXPECT_NEAR(estimate->wind.speedKt, 22, 1.5);
    EXPECT_NEAR(estimate->airspeedKt, 100, 1.5);
    EXPECT_TRUE(estimator.estimate(estimate->madeMs + 30 * 60'000 - 1));
    EXPECT_FALSE(estimator.estimate(estimate->madeMs + 30 * 60'000));
    estimator.forget();
    EXPECT_FALSE(estimator.estimate(470'000));
    // Speeds that lie on no circle, and the halves of two turns that lie too far apart.
    for (int i = 0; i < 72; ++i) estimator.add(500'000 + i * 1000, i * 5.0, i % 2 == 0 ? 80 : 120);
    EXPECT_FALSE(estimator.estimate(580'000));
    WindEstimator apart;
    turn(apart, wind, 90, 1000);
    turn(apart, {70, 22}, 90, 300'000);
    EXPECT_FALSE(apart.estimate(400'000));
}

TEST(FuelTank, CountsDownWhileTheAircraftFlies) {
    FuelTank tank;
    tank.step(true, 30, 1000);
    EXPECT_FALSE(tank.left());
    tank.fill(40);
    tank.step(false, 30, 3'601'000);
    EXPECT_EQ(tank.left(), 40) << "on the ground";
    tank.step(true, 30, 7'201'000);
    EXPECT_NEAR(*tank.left(), 10, 1e-9);
    tank.step(true, 30, 10'801'000);
    EXPECT_EQ(tank.left(), 0);
    tank.fill(std::nullopt);
    EXPECT_FALSE(tank.left());
}

TEST(PlannedTimes, ClimbCruiseAndDescendAgainstTheWind) {
    AircraftProfile aircraft;  // 75, 100 and 100 kt; 500 ft a minute
    aircraft.descentKt = 120;
    const PlannedLeg legs[] = {{90, 10}, {90, 40}, {270, 50}};
    const auto hoursOf = [&](const PlannedHeights& heights, const std::optional<Wind>& wind) {
        std::vector<double> hours;
        for (const auto& each : plannedHours(legs, aircraft, heights, wind)) hours.push_back(each.value_or(-1));
        return hours;
    };
    const auto near = [](const std::vector<double>& one, const std::vector<double>& other) {
        for (std::size_t i = 0; i < other.size(); ++i) EXPECT_NEAR(one.at(i), other[i], 1e-6) << i;
    };
    near(hoursOf({}, std::nullopt), {0.1, 0.4, 0.5});
    near(hoursOf({}, Wind{90, 20}), {0.125, 0.5, 50.0 / 120});
    // A climb of 12 minutes, 15 miles: the first leg and 5 miles of the second one; a descent of 6, 12 miles.
    near(hoursOf({.climbFt = 6000, .descentFt = 3000}, std::nullopt), {10 / 75.0, 5 / 75.0 + 0.35, 0.1 + 0.38});
    near(hoursOf({}, Wind{90, 120}), {-1, -1, 50.0 / 220});
}

TEST(PlannedTimes, TheDescentBeginsWhereItsRateLosesTheHeight) {
    const AircraftProfile aircraft;
    EXPECT_NEAR(*secondsToDescent(aircraft, 3000, 20, 120), 600 - 360, 1e-9);
    EXPECT_NEAR(*secondsToDescent(aircraft, 6000, 20, 120), -120, 1e-9);
    EXPECT_FALSE(secondsToDescent(aircraft, 0, 20, 120));
    EXPECT_FALSE(secondsToDescent(aircraft, 3000, 20, 29));
}

TEST(PlannedTimes, AGlideGoesFurtherWithTheWind) {
    const AircraftProfile aircraft;  // 9 to 1 at 65 knots
    EXPECT_NEAR(*glideArrivalFt(aircraft, 6076.115, {90, 6}, std::nullopt), 6076.115 / 3, 0.01);
    EXPECT_NEAR(*glideArrivalFt(aircraft, 6076.115, {90, 6}, Wind{90, 32.5}), -6076.115 / 3, 0.01);
    EXPECT_FALSE(glideArrivalFt(aircraft, 6076.115, {90, 6}, Wind{90, 70}));
}

}}  // namespace korvel
