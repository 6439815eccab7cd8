#include <gtest/gtest.h>

#include "nav/alarms/FlightAlarms.h"
#include "nav/alarms/LegIntercept.h"

namespace korvel { namespace {

using Words = std::vector<std::string>;

class FlightAlarmsTest : public testing::Test {
 protected:
    FlightAlarmsTest() { addFlightAlarms(board_, situation_); }
    Words after(std::int64_t ms) {
        now_ += ms;
        board_.update(now_);
        return shown();
    }
    Words shown() const {
        Words words;
        for (const ShownAlarm& alarm : board_.shown()) words.push_back(alarm.words);
        return words;
    }
    void nearAirport(double distanceNm) {
        situation_.destination = {.name = "KBFI", .distanceNm = distanceNm, .airport = true, .elevationFt = 21};
    }

    FlightSituation situation_;
    AlarmBoard board_;
    std::int64_t now_ = 1000;
};

TEST_F(FlightAlarmsTest, OffCourseIsToldAfterFiveSecondsWithoutABreak) {
    for (const double fullScale : {5.0, 1.25}) {
        situation_.fullScaleNm = fullScale;
        situation_.crossTrackNm = -1.01 * fullScale;
        EXPECT_EQ(after(500), Words{});
        EXPECT_EQ(after(4999), Words{});
        EXPECT_EQ(after(1), Words{"OFF COURSE"});
        situation_.crossTrackNm = 0.95 * fullScale;
        EXPECT_EQ(after(500), Words{"OFF COURSE"}) << "inside, but not clearly";
        EXPECT_TRUE(board_.acknowledge());
        EXPECT_EQ(after(60000), Words{}) << "seen";
        situation_.crossTrackNm = 0.89 * fullScale;
        EXPECT_EQ(after(500), Words{});
        situation_.crossTrackNm = 1.01 * fullScale;
        EXPECT_EQ(after(500), Words{});
        EXPECT_EQ(after(5000), Words{"OFF COURSE"}) << "comes again";
        situation_.crossTrackNm.reset();
        EXPECT_EQ(after(500), Words{});
    }
}

TEST_F(FlightAlarmsTest, GearIsWantedNearTheAirportBelowAThousandFeetOrSlow) {
    struct Case {
        double distanceNm;
        std::optional<int> altitudeFt;
        std::optional<double> speedKt;
        bool gear;
    };
    const Case cases[] = {
        {2.9, 1020, 140, true},
        {2.9, 1021, 140, false},
        {3.0, 500, 90, false},
        {2.9, 2500, 97.4, true},
        {2.9, 2500, 98, false},
        {2.9, std::nullopt, 90, true},
        {2.9, 900, {}, true},
        {0.5, 30, 39, false},
        {2.9, {}, {}, false},
    };
    for (const Case& one : cases) {
        situation_ = {.groundSpeedKt = one.speedKt, .altitudeFt = one.altitudeFt, .gearWarning = true};
        nearAirport(one.distanceNm);
        after(500);
        const Words seen = shown();
        EXPECT_EQ(!seen.empty() && seen.front() == "CHECK GEAR", one.gear) << one.distanceNm;
        situation_.gearWarning = false;
        after(500);
        situation_.destination.reset();
        EXPECT_EQ(after(500), Words{});
    }
}

TEST_F(FlightAlarmsTest, TheMostUrgentComesFirstAndEachIsSeenByItself) {
    situation_ = {.crossTrackNm = 6, .groundSpeedKt = 80, .altitudeFt = 500, .gearWarning = true};
    nearAirport(1.9);
    after(500);
    EXPECT_EQ(after(5000), (Words{"CHECK GEAR", "OFF COURSE", "Arriving at KBFI"}));
    EXPECT_TRUE(board_.acknowledge(1));
    EXPECT_EQ(shown(), (Words{"CHECK GEAR", "Arriving at KBFI"}));
    EXPECT_FALSE(board_.acknowledge(2));
    board_.add(
        {.urgency = AlarmUrgency::Warning, .condition = [](bool) { return std::optional<std::string>("TERRAIN"); }});
    EXPECT_EQ(after(0), (Words{"CHECK GEAR", "TERRAIN", "Arriving at KBFI"}));
    nearAirport(2.4);
    EXPECT_EQ(after(0).back(), "Arriving at KBFI");
    EXPECT_EQ(board_.shown().back().urgency, AlarmUrgency::Notice);
    nearAirport(2.6);
    EXPECT_EQ(after(0), (Words{"CHECK GEAR", "TERRAIN"}));
    board_.forget();
    EXPECT_EQ(shown(), Words{});
    EXPECT_EQ(after(0), (Words{"CHECK GEAR", "TERRAIN"})) << "not seen any more, elsewhere";
}

TEST_F(FlightAlarmsTest, ArrivingGoesByItselfAndComesAgainWithTheNextArrival) {
    nearAirport(1.9);
    EXPECT_EQ(after(500), Words{"Arriving at KBFI"});
    EXPECT_EQ(after(9999), Words{"Arriving at KBFI"});
    EXPECT_EQ(after(1), Words{});
    EXPECT_EQ(after(60000), Words{});
    nearAirport(3);
    after(500);
    nearAirport(1.9);
    EXPECT_EQ(after(500), Words{"Arriving at KBFI"});
}

TEST(LegIntercept, ACourseMustHaveBeenJoinedOnceToBeLeft) {
    LegIntercept intercept;
    NavigationState leg;
    leg.activeWaypoint = {0.1, 0.1};
    leg.legStart = {0, 0};
    leg.obsCourse = 90;
    leg.crossTrackNm = -7;
    EXPECT_FALSE(intercept.update(leg, 5)) << "on the way to it";
    leg.crossTrackNm = kNoDistanceNm;
    EXPECT_FALSE(intercept.update(leg, 5));
    leg.crossTrackNm = -5;
    EXPECT_TRUE(intercept.update(leg, 5));
    leg.crossTrackNm = 7;
    EXPECT_TRUE(intercept.update(leg, 5));
    for (auto change : {+[](NavigationState& state) { state.obsCourse = 100; },
             +[](NavigationState& state) { state.activeWaypoint.lat = 0.2; },
             +[](NavigationState& state) { state.legStart.lat = 0.2; }}) {
        leg.crossTrackNm = 0;
        EXPECT_TRUE(intercept.update(leg, 5));
        leg.crossTrackNm = 7;
        change(leg);
        EXPECT_FALSE(intercept.update(leg, 5)) << "another leg";
    }
}

}}  // namespace korvel
