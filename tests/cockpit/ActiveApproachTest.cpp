#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/FlightFixture.h"
#include "geo/Geodesy.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

/// A strip of a mile, landed on to the north (36) at 47.5 north, and a fix before and behind it.
constexpr std::string_view kPlaces =
    "ARPT_BEGIN\nID=XFLD\nNAME=Field\nPOSN.LAT=47.51\nPOSN.LON=10\nELEV=1000\n"
    "RWY1.LEN=6076\nRWY1.LO.ID=18\nRWY1.LO.POSN.LAT=47.5166667\nRWY1.LO.POSN.LON=10\n"
    "RWY1.HI.ID=36\nRWY1.HI.POSN.LAT=47.5\nRWY1.HI.POSN.LON=10\nARPT_END\n"
    "NAVAID_BEGIN\nID=XSO\nNAME=South\nTYPE=VOR\nPOSN.LAT=47.0\nPOSN.LON=10\nFREQ=112.0\nNAVAID_END\n"
    "NAVAID_BEGIN\nID=XNO\nNAME=North\nTYPE=VOR\nPOSN.LAT=48.0\nPOSN.LON=10\nFREQ=113.0\nNAVAID_END\n";

class ActiveApproachTest : public testing::Test {
 protected:
    ActiveApproachTest() {
        folder_.write("x.UDB.TXT", kPlaces);
        program_.charts.load(std::vector{folder_.path()});
    }
    /// What the pages show after so many seconds there.
    CockpitData fly(double lat, double lon, double trackTrue, int seconds, int altitudeFt = 3000) {
        const ActiveNavigation::Aircraft aircraft{.position = {lat * kDegToRad, lon * kDegToRad},
            .groundSpeedKt = 90,
            .trackMag = variation_.TrueToMagnetic(trackTrue),
            .altitudeFt = altitudeFt};
        CockpitData data;
        for (int tick = 0; tick < 2 * seconds; ++tick) {
            clock_.advanceMs(Flight::kTickMs);
            data = program_.tick(aircraft, settings_, variation_);
        }
        return data;
    }

    TempFolder folder_;
    VirtualClock clock_;
    Settings settings_;
    Variation variation_{.receiverDeg = 3};
    FlightByCharts program_{clock_};
    Flight& flight_ = program_.flight;
};

TEST_F(ActiveApproachTest, LinedUpWithTheDestinationTheRunwayTakesTheLegsPlace) {
    ASSERT_EQ(flight_.plan().enterRoute("XSO XFLD"), "");
    CockpitData data = fly(47.4, 10, 0, 5);
    ASSERT_TRUE(data.approach);
    EXPECT_EQ(data.approach->runway.id, "36");
    EXPECT_EQ(data.fullScaleNm, 1.25);
    EXPECT_NEAR(*data.distanceNm, 6, 0.01);
    EXPECT_NEAR(*data.bearingMagDeg, 357, 0.01);
    EXPECT_NEAR(*data.desiredTrackMagDeg, 357, 0.01);
    EXPECT_EQ(data.targetAltitudeFt, 1050 + 1911) << "6 NM up three degrees";
    EXPECT_FALSE(data.legStart);
    EXPECT_TRUE(data.activeWaypoint) << "still the plan's";
    data = fly(47.4, 9.99, 0, 1);
    EXPECT_NEAR(*data.crossTrackNm, 0.41, 0.01) << "left";
    EXPECT_TRUE(data.alarms.empty());
    data = fly(47.4, 9.96, 0, 7);
    EXPECT_EQ(data.alarms, std::vector<ShownAlarm>{{"OFF COURSE"}}) << "1.6 NM is off this scale";
    settings_.apprMode = false;
    EXPECT_FALSE(fly(47.4, 10, 0, 5).approach);
    settings_.apprMode = true;
    EXPECT_TRUE(fly(47.4, 10, 0, 5).approach) << "switching off declines nothing";

    std::string withoutTheField(kPlaces.substr(kPlaces.find("NAVAID_BEGIN")));
    folder_.write("x.UDB.TXT", withoutTheField);
    program_.charts.load(std::vector{folder_.path()});
    flight_.approach().forget();
    EXPECT_TRUE(fly(47.4, 10, 0, 5).approach) << "the plan's own field has its runways with it";
}

TEST_F(ActiveApproachTest, OnlyADestinationIsApproachedByItselfAnyAirportWhenChosen) {
    ASSERT_EQ(flight_.plan().enterRoute("XSO XFLD XNO"), "");
    EXPECT_FALSE(fly(47.4, 10, 0, 5).approach) << "the plan leads on";
    const std::vector<LandingRunway> offered = flight_.offeredApproaches({47.6 * kDegToRad, 10 * kDegToRad});
    ASSERT_EQ(offered.size(), 2U);
    EXPECT_EQ(offered.front().id, "18") << "straight in";
    flight_.approach().mode().choose(offered.front());
    const CockpitData data = fly(47.6, 10.1, 180, 20);
    ASSERT_TRUE(data.approach);
    EXPECT_EQ(data.flownTo(), offered.front().threshold) << "whatever the plan flies to";
    EXPECT_NEAR(*data.crossTrackNm, 4.05, 0.01);
    EXPECT_TRUE(data.alarms.empty()) << "not joined yet";
    flight_.approach().mode().leave();
    flight_.navigation().DirectTo("XFLD", "");
    EXPECT_TRUE(fly(47.4, 10, 0, 5).approach);
}

TEST_F(ActiveApproachTest, ThePlansEndIsOfferedBeforeANearerField) {
    folder_.write("y.UDB.TXT",
        "ARPT_BEGIN\nID=XTOO\nNAME=Too\nPOSN.LAT=46.7\nPOSN.LON=10\nRWY1.LEN=3000\nRWY1.LO.ID=09\nRWY1.LO.POSN.LAT=46."
        "7\n"
        "RWY1.LO.POSN.LON=10\nRWY1.HI.ID=27\nRWY1.HI.POSN.LAT=46.7\nRWY1.HI.POSN.LON=10.02\nARPT_END\n");
    program_.charts.load(std::vector{folder_.path()});
    ASSERT_EQ(flight_.plan().enterRoute("XTOO XSO XFLD"), "");
    fly(46.7, 10, 180, 1);
    const auto fieldOffered = [&](double lat) {
        const auto offered = flight_.offeredApproaches({lat * kDegToRad, 10 * kDegToRad});
        return offered.empty() ? "" : offered.front().airportKey;
    };
    EXPECT_EQ(fieldOffered(46.8), "a.XFLD") << "43 NM ahead";
    EXPECT_EQ(fieldOffered(46.65), "a.XTOO") << "52 NM from it";
}

TEST_F(ActiveApproachTest, ACourseToAWaypointOfThePlanEndsThereWhenThePlanShallGoOn) {
    for (const bool goesOn : {false, true}) {
        settings_.autoSequence = goesOn;
        ASSERT_EQ(flight_.plan().enterRoute("XSO XFLD XNO"), "");
        fly(47.3, 10, 0, 1);
        flight_.navigation().DirectTo("XFLD", "357");
        EXPECT_EQ(fly(47.5, 10, 0, 2).activeName, "Field") << "near it, but still ahead";
        EXPECT_EQ(fly(47.52, 10, 0, 2).activeName, goesOn ? "North" : "Field");
    }
}

}}  // namespace korvel
