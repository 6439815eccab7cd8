#include <cmath>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "nav/alarms/TerrainAhead.h"

namespace korvel { namespace {

constexpr GeoPoint kHere{0.8, 0.2};

GeoPoint ahead(double distanceNm, double bearingDeg) {
    GeoPoint point;
    PointAtRadialDistance(
        kHere.lat, kHere.lon, distanceNm / kNmPerRadian, bearingDeg * kDegToRad, point.lat, point.lon);
    return point;
}

/// A needle of 2000 ft; the ground around it is not known.
HighestGround needleAt(double distanceNm, double bearingDeg) {
    const GeoPoint needle = ahead(distanceNm, bearingDeg);
    return [needle](GeoPoint point, double withinNm) {
        return DistanceNm(point, needle) <= withinNm ? std::optional(2000.0) : std::nullopt;
    };
}

TEST(TerrainAhead, LooksAlongThePathForHalfAMinuteAndAMinute) {
    struct Case {
        const char* what;
        double distanceNm, bearingDeg, speedKt, speedFpm, turnDegPerSec;
        std::optional<double> minuteFt, halfMinuteFt;
    };
    // At 120 kt a mile lasts 30 s, at 240 kt 15 s.
    const std::optional<double> none;
    const Case cases[] = {
        {"here", 0, 0, 120, 0, 0, 500, 500},
        {"at the half minute", 1.05, 90, 120, 0, 0, 500, 500},
        {"behind it", 1.3, 90, 120, 0, 0, 500, none},
        {"at the minute", 2.1, 90, 120, 0, 0, 500, none},
        {"behind that", 2.35, 90, 120, 0, 0, none, none},
        {"twice as fast", 1.9, 90, 240, 0, 0, 500, 500},
        {"twice as fast, far", 4.1, 90, 240, 0, 0, 500, none},
        {"slow: a mile at least", 0.95, 90, 45, 0, 0, 500, 500},
        {"slow, farther", 1.3, 90, 45, 0, 0, none, none},
        {"beside, in the corridor", 2.0, 90 + 5.5, 120, 0, 0, 500, none},
        {"beside, out of it", 2.0, 90 + 8, 120, 0, 0, none, none},
        {"behind the aircraft", 0.4, 270, 120, 0, 0, none, none},
        {"sinking", 2.0, 90, 120, -600, 0, -100, none},
        {"a climb counts as half", 2.0, 90, 120, 600, 0, 800, none},
        {"turning towards it", 0.45, 135, 60, 0, 3, 500, 500},
        {"turning away from it", 1.0, 90, 60, 0, 3, none, none},
    };
    for (const Case& one : cases) {
        const auto clearance = clearanceAhead({.position = kHere,
                                                  .trackTrueDeg = 90,
                                                  .groundSpeedKt = one.speedKt,
                                                  .altitudeFt = 2500,
                                                  .verticalSpeedFpm = one.speedFpm,
                                                  .turnRateDegPerSec = one.turnDegPerSec},
            needleAt(one.distanceNm, one.bearingDeg));
        const auto expectNear = [&](const std::optional<double>& is, const std::optional<double>& wanted) {
            ASSERT_EQ(is.has_value(), wanted.has_value()) << one.what;
            // The corridor sees the needle up to 12 s before it.
            if (!wanted) return;
            EXPECT_NEAR(*is, *wanted, one.speedFpm == 0 ? 0.1 : 130) << one.what;
        };
        expectNear(clearance.withinMinuteFt, one.minuteFt);
        expectNear(clearance.withinHalfMinuteFt, one.halfMinuteFt);
    }
}

TEST(TerrainAhead, NobodyIsWarnedOfWhereHeLands) {
    const struct {
        LandingNear near;
        bool landing;
    } cases[] = {
        {{}, false},
        {{2.0, {}, {}}, true},
        {{2.1, {}, {}}, false},
        {{{}, 4.9, 1499}, true},
        {{{}, 4.9, 1500}, false},
        {{{}, 5.1, 1000}, false},
        {{{}, 4.9, {}}, false},
    };
    for (const auto& [near, landing] : cases) EXPECT_EQ(isLanding(near), landing) << near.runwayNm.value_or(-1);
}

TEST(TerrainAhead, AlarmsBeginAfterTwoSecondsAndEndHigher) {
    AlarmBoard board;
    TerrainClearance clearance;
    addTerrainAlarms(board, clearance);
    const auto words = [&](std::int64_t atMs) {
        board.update(atMs);
        std::string all;
        for (const ShownAlarm& alarm : board.shown()) all += alarm.words + ";";
        return all;
    };
    const std::string caution = "TERRAIN AHEAD (GPS altitude);";
    clearance.withinMinuteFt = 99;
    EXPECT_EQ(words(0), "");
    EXPECT_EQ(words(1999), "");
    EXPECT_EQ(words(2000), caution);
    clearance.withinHalfMinuteFt = -5;
    EXPECT_EQ(words(2500), caution);
    EXPECT_EQ(words(4500), "TERRAIN (GPS altitude);" + caution);
    EXPECT_EQ(board.shown().front().urgency, AlarmUrgency::Warning);
    EXPECT_EQ(board.shown().back().urgency, AlarmUrgency::Caution);
    clearance = {.withinMinuteFt = 249, .withinHalfMinuteFt = 251};
    EXPECT_EQ(words(5000), caution);
    clearance.withinMinuteFt = 250;
    EXPECT_EQ(words(5500), "");
    clearance.withinMinuteFt = 101;
    EXPECT_EQ(words(60000), "") << "not low enough to begin again";
    clearance.withinMinuteFt.reset();
    EXPECT_EQ(words(60500), "") << "unknown ground";
}

}}  // namespace korvel
