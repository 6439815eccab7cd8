#include <cmath>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/FlightFixture.h"
#include "cockpit/NearAirportList.h"
#include "geo/Geodesy.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

GeoPoint at(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

class FlightTest : public testing::Test {
 protected:
    FlightTest() {
        folder_.write("x.UDB.TXT",
            "ARPT_BEGIN\nID=XFLD\nNAME=Field\nPOSN.LAT=47.5\nPOSN.LON=10\nELEV=1000\nARPT_END\n"
            "NAVAID_BEGIN\nID=XA\nNAME=XA\nTYPE=VOR\nPOSN.LAT=47.1\nPOSN.LON=10\nFREQ=112.0\nNAVAID_END\n"
            "NAVAID_BEGIN\nID=XB\nNAME=XB\nTYPE=VOR\nPOSN.LAT=47.4\nPOSN.LON=10\nFREQ=113.0\nNAVAID_END\n"
            "NAVAID_BEGIN\nID=XC\nNAME=XC\nTYPE=VOR\nPOSN.LAT=48.0\nPOSN.LON=10\nFREQ=114.0\nNAVAID_END\n");
        program_.charts.load(std::vector{folder_.path()});
    }
    CockpitData tick(const ActiveNavigation::Aircraft& aircraft = {}, std::int64_t ms = Flight::kTickMs) {
        clock_.advanceMs(ms);
        return program_.tick(aircraft, settings_, variation_);
    }
    /// The simulated flight east from 47 N, 10 E; what it has covered.
    double simulate(int ticks) {
        for (int i = 0; i < ticks; ++i) tick();
        return DistanceNm(at(47, 10), flight_.simulator().position());
    }

    TempFolder folder_;
    VirtualClock clock_{{.year = 2026, .month = 5, .day = 1, .hour = 12}};
    Settings settings_;
    Variation variation_;
    FlightByCharts program_{clock_};
    Flight& flight_ = program_.flight;
};

TEST_F(FlightTest, TheSimulatorFliesAsOftenInATickAsTimeIsFaster) {
    for (const auto& [asked, factor] : {std::pair{1, 1}, {7, 7}, {60, 60}, {61, 60}, {-1, 1}}) {
        flight_.startSimulator({.position = at(47, 10), .headingMag = 90, .speedKt = 120});
        flight_.setTimeFactor(asked);
        EXPECT_EQ(flight_.timeFactor(), factor);
        const std::int64_t before = flight_.tickMs();
        // The very first step has nothing to count from.
        EXPECT_NEAR(simulate(2), (2 * factor - 1) * 0.5 * 120 / 3600, 1e-6) << asked;
        EXPECT_EQ(flight_.tickMs() - before, 2 * factor * 500) << asked;
        flight_.stopSimulator();
        EXPECT_EQ(flight_.timeFactor(), 1);
    }
    const std::int64_t before = flight_.tickMs();
    flight_.setTimeFactor(60);
    tick();
    EXPECT_EQ(flight_.tickMs() - before, 500) << "nothing but the simulator is faster";
}

TEST_F(FlightTest, TheSimulatedFlightTellsTrueFromMagnetic) {
    variation_ = {.databaseDeg = 5};
    flight_.startSimulator({.position = at(47, 10), .headingMag = 35, .speedKt = 120});
    tick();
    ASSERT_EQ(flight_.plan().enterRoute("XFLD"), "");
    simulate(3);
    const CockpitData data = tick();
    EXPECT_EQ(data.trackMagDeg, 35);
    EXPECT_EQ(data.trackTrueDeg, 40);
    ASSERT_TRUE(data.desiredTrackMagDeg && data.desiredTrackTrueDeg);
    EXPECT_NEAR(std::remainder(*data.desiredTrackTrueDeg - *data.desiredTrackMagDeg, 360), 5, 1e-9);
}

TEST_F(FlightTest, TellsHowFastToClimbToBeOnThePathAtTheWaypoint) {
    for (const auto& [speedKt, lat, expected] : {std::tuple{120.0, 47.3, std::optional(-500)},
             {60.0, 47.3, std::optional(-250)}, {29.0, 47.3, std::nullopt}, {120.0, 47.398, std::nullopt}}) {
        flight_.startSimulator({.position = at(lat, 10), .headingMag = 0, .speedKt = speedKt, .altitudeFt = 4500});
        tick();
        ASSERT_EQ(flight_.plan().enterRoute("XA XB@30"), "");
        tick();
        const CockpitData data = tick();
        ASSERT_EQ(data.pathAltitudeFt, 3000);
        ASSERT_EQ(data.requiredVerticalSpeedFpm.has_value(), expected.has_value()) << speedKt << ' ' << lat;
        EXPECT_NEAR(data.requiredVerticalSpeedFpm.value_or(0), expected.value_or(0), 3);
        flight_.plan().clear();
    }
}

TEST_F(FlightTest, TheTrackIsBackAtTheTimeOfDayAfterAFastSimulation) {
    settings_.tracking = true;
    flight_.startSimulator({.position = at(47, 10), .headingMag = 90, .speedKt = 120});
    flight_.setTimeFactor(60);
    simulate(4);
    flight_.stopSimulator();
    for (int i = 0; i < 3; ++i) tick({.position = at(48 + i, 10)}, 5000);
    ASSERT_EQ(flight_.track().saveTrack(folder_ / "a.trk"), "");
    const std::string lines = folder_.read("a.trk");
    EXPECT_NE(lines.find("20260501,1201"), std::string::npos) << "the simulator's own time\n" << lines;
    EXPECT_TRUE(
        lines.ends_with("00000000,000000,0.0,0.0,0,0,0\r\n"
                        "20260501,120007,48.000000,10.000000,0,0,0\r\n"
                        "20260501,120012,49.000000,10.000000,0,0,0\r\n"
                        "20260501,120017,50.000000,10.000000,0,0,0\r\n"))
        << lines;
}

TEST_F(FlightTest, WhatIsDerivedBeginsAnewWithAnotherSource) {
    const auto climb = [&](int altitudeFt) {
        std::vector<std::optional<int>> rates;
        for (int i = 0; i < 8; ++i)
            rates.push_back(tick({.position = at(48, 10), .altitudeFt = altitudeFt}).verticalSpeedFpm);
        EXPECT_EQ(rates.front(), std::nullopt);
        return rates.back();
    };
    ASSERT_EQ(flight_.plan().enterRoute("XA XB XFLD"), "");
    EXPECT_EQ(climb(9000), 0);
    flight_.startSimulator({.position = at(47.395, 10), .headingMag = 0, .speedKt = 100, .altitudeFt = 2000});
    EXPECT_EQ(climb(9000), 0) << "never the step from one aircraft to the other";
    EXPECT_TRUE(tick().plan->rows[1].flown);
    EXPECT_EQ(flight_.navigation().DirectTo("XC", ""), "Direct to XC");
    flight_.stopSimulator();
    EXPECT_EQ(climb(9000), 0);
    const CockpitData real = tick({.position = at(48, 10)});
    EXPECT_FALSE(real.plan->rows[1].flown || real.directLeg) << "the aircraft itself never was there";
    flight_.sourceChanged(true);
    EXPECT_EQ(climb(100), 0);
}

TEST_F(FlightTest, TheAlarmsKnowWhereTheFlightEndsAndHowHighThatIs) {
    const std::tuple<bool, int, double, std::vector<ShownAlarm>> cases[] = {
        {true, 1990, 47.54, {{"CHECK GEAR", AlarmUrgency::Warning}}},
        {true, 2010, 47.54, {}},
        {false, 1990, 47.54, {}},
        {true, 1990, 47.56, {}},
        {false, 3000, 47.53, {{"Arriving at XFLD", AlarmUrgency::Notice}}},
    };
    for (const auto& [wanted, altitudeFt, lat, alarms] : cases) {
        settings_.gearWarning = wanted;
        tick({.position = at(48, 10)});
        ASSERT_EQ(flight_.plan().enterRoute("XFLD"), "");
        const CockpitData data = tick({.position = at(lat, 10), .groundSpeedKt = 150, .altitudeFt = altitudeFt});
        EXPECT_EQ(data.alarms, alarms) << altitudeFt << ' ' << lat;
        flight_.plan().clear();
        tick({.position = at(48, 10)});
    }
}

TEST_F(FlightTest, OffCourseIsWhoHasJoinedTheCourseAndLeftIt) {
    const auto alarmsAfterSixSeconds = [&](double lon) {
        CockpitData data;
        for (int i = 0; i < 12; ++i) data = tick({.position = at(47.2, lon)});
        return data.alarms;
    };
    alarmsAfterSixSeconds(10.3);
    EXPECT_EQ(flight_.navigation().DirectTo("XC", "360"), "Direct to XC");
    EXPECT_EQ(alarmsAfterSixSeconds(10.3), std::vector<ShownAlarm>{}) << "12 NM beside it, on the way to it";
    EXPECT_EQ(alarmsAfterSixSeconds(10.1), std::vector<ShownAlarm>{});
    EXPECT_EQ(alarmsAfterSixSeconds(10.3), std::vector<ShownAlarm>{{"OFF COURSE"}});
}

TEST_F(FlightTest, ThePagesSeeThePlanAsItIsNow) {
    EXPECT_FALSE(tick({.position = at(47, 10)}).plan);
    ASSERT_EQ(flight_.plan().enterRoute("XFLD"), "");
    const auto shown = tick({.position = at(47.2, 10)}).plan;
    ASSERT_TRUE(shown);
    EXPECT_TRUE(shown->changed);
    EXPECT_EQ(tick({.position = at(47.2, 10)}).plan, shown) << "not made anew for nothing";
    ASSERT_EQ(flight_.plan().saveAs(folder_ / "a.fp"), "");
    const auto saved = tick({.position = at(47.2, 10)}).plan;
    EXPECT_FALSE(saved->changed);
    EXPECT_EQ(saved->fileName, "a.fp");
    flight_.plan().clear();
    EXPECT_FALSE(tick({.position = at(47.2, 10)}).plan);
}

TEST_F(FlightTest, OnlyWhatWasFlownToIsTickedAndNothingIsActiveWithoutAPosition) {
    const auto parts = [](const CockpitData& data) {
        std::string letters;
        for (std::size_t i = 0; i < data.plan->rows.size(); ++i)
            letters += "PSA."[static_cast<int>(planPart(*data.plan, i))];
        return letters;
    };
    ASSERT_EQ(flight_.plan().enterRoute("XA XB XFLD XC"), "");
    EXPECT_EQ(parts(tick()), "....");
    EXPECT_EQ(flight_.navigation().DirectTo("XB", ""), "No gps signal!");
    EXPECT_EQ(parts(tick()), "....") << "chosen for later, but nothing is flown to";
    EXPECT_EQ(parts(tick({.position = at(47.2, 10), .trackMag = 0})), "SA..") << "XA was never flown to";
    EXPECT_EQ(parts(tick({.position = at(47.395, 10), .trackMag = 0})), "SPA.");
    EXPECT_EQ(parts(tick()), ".P..");
    flight_.plan().flyTo(3);
    EXPECT_EQ(parts(tick({.position = at(47.4, 10), .trackMag = 0})), "SPSA") << "XFLD was left out";
    ASSERT_EQ(flight_.plan().enterRoute("XA XB XFLD XC XA"), "");
    EXPECT_EQ(parts(tick({.position = at(47.4, 10), .trackMag = 0})), "SPSA.") << "an edit forgets nothing";
}

TEST_F(FlightTest, NearAirportsAreLookedUpWhileSomebodyLooks) {
    NearAirportList list;
    const auto look = [&](GeoPoint here, bool wanted = true) {
        if (wanted) list.want();
        list.update(program_.charts.database(), here, settings_, {});
        return list.shown();
    };
    EXPECT_FALSE(look(at(47, 10), false));
    const auto first = look(at(47, 10));
    ASSERT_TRUE(first);
    ASSERT_EQ(first->size(), 1U);
    EXPECT_NEAR(first->front().distanceNm, 30, 0.1);
    EXPECT_EQ(look(at(47.0015, 10)), first) << "0.09 NM";
    EXPECT_NE(look(at(47.002, 10)), first);
    EXPECT_FALSE(look({}));
    look(at(47, 10));
    EXPECT_FALSE(look(at(47, 10), false));
    const auto again = look(at(47, 10));
    list.forget();
    EXPECT_FALSE(list.shown());
    EXPECT_NE(look(at(47, 10)), again);
}

}}  // namespace korvel
