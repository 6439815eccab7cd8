#include <algorithm>

#include <gtest/gtest.h>

#include "CommaLocale.h"
#include "cockpit/TrafficWatch.h"
#include "geo/Geodesy.h"
#include "nav/alarms/AlarmBoard.h"
#include "receiver/gdl90/TrafficTable.h"

namespace korvel { namespace {

constexpr GeoPoint kHere{48 * kDegToRad, 11 * kDegToRad};

Gdl90Target target(std::uint32_t address, double bearingDeg, double nm, int altitudeFt) {
    Gdl90Target target{.address = address, .pressureAltitudeFt = altitudeFt, .airborne = true};
    target.position.emplace();
    PointAtRadialDistance(
        kHere.lat, kHere.lon, nm / kNmPerRadian, bearingDeg * kDegToRad, target.position->lat, target.position->lon);
    return target;
}

class TrafficWatchTest : public testing::Test {
 protected:
    TrafficWatchTest() {
        Gdl90Target own = target(1, 0, 0, 3000);
        own.isOwn = true;
        table_.take(own, 0);
        watch_.addTo(board_);
    }
    TrafficList seen(std::int64_t nowMs, const TrafficChoice& choice = {}) {
        watch_.update(&table_, MovingAircraft{.position = kHere, .trackTrueDeg = 90, .groundSpeedKt = 100}, 0, nowMs);
        board_.update(nowMs);
        const auto shown = watch_.shown(choice);
        return shown ? *shown : TrafficList();
    }
    std::vector<std::string> names(const TrafficList& list) {
        std::vector<std::string> names;
        for (const TrafficView& each : list) names.push_back(each.name);
        return names;
    }

    const CommaLocale comma_;
    TrafficTable table_;
    AlarmBoard board_;
    TrafficWatch watch_;
};

TEST_F(TrafficWatchTest, ReckonsOnUntilAMinuteHasPassed) {
    Gdl90Target other = target(0xABC, 0, 5, 4000);
    other.trackDeg = 0;
    other.groundSpeedKt = 120;
    other.verticalSpeedFpm = 600;
    other.callSign = "N123";
    table_.take(other, 0);
    TrafficList list = seen(3000);
    ASSERT_EQ(list.size(), 1U);
    EXPECT_NEAR(DistanceNm(kHere, list[0].position), 5.1, 1e-3);
    EXPECT_EQ(list[0].aboveFt, 1030);
    EXPECT_EQ(trafficText(list[0], kHere, 0), "N123  +1000 ft  5.1 nm  120 kt  3 s");
    EXPECT_EQ(trafficMotion(list[0], 0), "+1000 ft  120 kt  3 s");
    EXPECT_EQ(trafficText(list[0], std::nullopt, 1), "N123  +305 m  120 kt  3 s");
    EXPECT_EQ(seen(5000)[0].aboveFt, std::nullopt) << "the own height is old";
    EXPECT_EQ(seen(59999).size(), 1U);
    EXPECT_TRUE(seen(60000).empty());
    watch_.update(nullptr, std::nullopt, 0, 0);
    EXPECT_EQ(watch_.shown({}), nullptr);
}

TEST_F(TrafficWatchTest, LeavesOutTheOwnAndOtherHeightsButNobodyWhoIsNear) {
    table_.take(target(1, 0, 0.1, 3000), 0);
    Gdl90Target relayed = target(1, 0, 0.1, 3000);
    relayed.addressType = 2;
    table_.take(relayed, 0);
    table_.take(target(0x2, 10, 4, 3900), 0);
    table_.take(target(0x3, 10, 3, 6600), 0);
    table_.take(target(0x4, 10, 0.9, 3500), 0);
    EXPECT_EQ(names(seen(1000)), (std::vector<std::string>{"000004", "000002"}));
    EXPECT_EQ(seen(1000, {.withinFt = 0}).size(), 3U);
    EXPECT_EQ(names(seen(1000, {.withinFt = 300})), std::vector<std::string>{"000004"}) << "a caution";
    EXPECT_TRUE(seen(1000, {.shown = false}).empty());
}

TEST_F(TrafficWatchTest, WarnsWithClockHeightAndDistance) {
    table_.take(target(0x2, 180, 0.3, 3100), 0);
    table_.take(target(0x3, 60, 0.9, 2300), 0);
    Gdl90Target parked = target(0x4, 0, 0.1, 3000);
    parked.airborne = false;
    table_.take(parked, 0);
    seen(1000, {.shown = false});
    EXPECT_EQ(board_.shown(), (std::vector<ShownAlarm>{{"TRAFFIC 3 o'clock +100 ft 0.3 nm", AlarmUrgency::Warning},
                                  {"Traffic 11 o'clock -700 ft 0.9 nm", AlarmUrgency::Caution}}));
    seen(60000);
    EXPECT_TRUE(board_.shown().empty());
}

TEST(TrafficTable, TheOneHeardLongestAgoMakesRoom) {
    TrafficTable table;
    for (std::uint32_t i = 0; i <= TrafficTable::kMost; ++i) table.take({.address = i}, i == 7 ? std::int64_t{-1} : i);
    EXPECT_EQ(table.others().size(), TrafficTable::kMost);
    for (const TrafficReport& each : table.others()) EXPECT_NE(each.target.address, 7U);
    table.take({.addressType = 1, .address = 5}, 0);
    table.take({.addressType = 2, .address = 6}, 1000);
    EXPECT_EQ(std::ranges::count(table.others(), 5U, [](const auto& r) { return r.target.address; }), 2) << "its own";
    EXPECT_EQ(std::ranges::count(table.others(), 6U, [](const auto& r) { return r.target.address; }), 1) << "relayed";
}

}}  // namespace korvel
