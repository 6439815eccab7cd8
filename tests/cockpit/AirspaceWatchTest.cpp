#include <gtest/gtest.h>

#include "cockpit/AirspaceWatch.h"
#include "geo/Geodesy.h"
#include "ground/airspace/AirspaceSet.h"
#include "ground/airspace/OpenAir.h"
#include "nav/alarms/AlarmBoard.h"

namespace korvel { namespace {

/// Flown eastwards at 120 kt along 47 N: a mile is 1.466 minutes of longitude there, half a minute of flight.
class AirspaceWatchTest : public testing::Test {
 protected:
    void load(std::string_view openAir) { set_.assign(readOpenAir(openAir).airspaces); }
    static std::string box(const char* head, double westMin, double eastMin) {
        const auto corner = [](const char* lat, double minutes) {
            const int seconds = static_cast<int>(minutes * 60);
            const int degrees = 8 + seconds / 3600;
            return "DP 4" + std::string(lat) + " 00" + std::to_string(degrees) + ":" +
                   std::to_string(100 + seconds / 60 % 60).substr(1) + ":" +
                   std::to_string(100 + seconds % 60).substr(1) + "E\n";
        };
        return std::string(head) + corner("6:50:00N", westMin) + corner("7:10:00N", westMin) +
               corner("7:10:00N", eastMin) + corner("6:50:00N", eastMin);
    }
    AirspaceWatch::Situation at(double lonMin, std::optional<int> altitudeFt = 2500) {
        return {.position = GeoPoint{47 * kDegToRad, (8 + lonMin / 60) * kDegToRad},
            .trackTrueDeg = 90,
            .groundSpeedKt = 120,
            .altitudeFt = altitudeFt};
    }
    /// The list as "relation name; ", one letter each relation.
    std::string seen(const AirspaceWatch::Situation& now) {
        watch_.update(now, nowMs_ += 1000);
        board_.update(nowMs_);
        if (!watch_.shown()) return "none";
        std::string all;
        for (const AirspaceView& each : *watch_.shown())
            all += std::string(1, "IFAB"[static_cast<int>(each.relation)]) + each.name +
                   (each.seconds ? std::to_string(*each.seconds) : "") + ' ';
        return all;
    }
    /// The alarms after some seconds there.
    std::string alarms(const AirspaceWatch::Situation& now, int seconds = 4) {
        for (int i = 0; i < seconds; ++i) seen(now);
        std::string all;
        for (const ShownAlarm& alarm : board_.shown()) all += alarm.words + "; ";
        return all;
    }

    AirspaceSet set_;
    AlarmBoard board_;
    AirspaceWatch watch_{set_, board_};
    std::int64_t nowMs_ = 0;
};

TEST_F(AirspaceWatchTest, TellsHowEachLiesToTheAircraft) {
    EXPECT_EQ(seen(at(0)), "none") << "nothing is loaded";
    load(box("AC D\nAN IN\nAL GND\nAH 3000\n", -10 + 10, 10) + box("AC C\nAN OVER\nAL 4500\nAH FL95\n", 0, 10) +
         box("AC R\nAN UNDER\nAL GND\nAH 1000\n", 0, 10) + box("AC E\nAN SOON\nAL GND\nAH FL95\n", 8, 12) +
         box("AC D\nAN LATER\nAL GND\nAH 2100\n", 13, 20) + box("AC D\nAN HIGH\nAL 3100\nAH FL95\n", 13, 20) +
         box("AC D\nAN FAR\nAL GND\nAH FL95\n", 40, 50));
    // 6 minutes of longitude to SOON are 4.1 nm, two minutes; 11 to LATER 7.5 nm.
    EXPECT_EQ(seen(at(2)), "IIN FSOON130 AOVER BLATER230 BUNDER ") << "passed 400 ft above its ceiling";
    const AirspaceView soon = watch_.shown()->at(1);
    EXPECT_NEAR(soon.distanceNm.value(), 130 / 30.0, 0.01);
    EXPECT_EQ(soon.limits, "GND / FL95");
    EXPECT_EQ(watch_.shown()->at(3).heightFt, 400);
    EXPECT_EQ(seen(at(2, 2600)), "IIN FSOON130 AHIGH230 AOVER BLATER230 BUNDER ") << "500 ft from floor and ceiling";
    EXPECT_EQ(seen(at(2, 2601)), "IIN FSOON130 AHIGH230 AOVER BUNDER ");
    AirspaceWatch::Situation climbing = at(2);
    climbing.verticalSpeedFpm = 2000;
    EXPECT_EQ(seen(climbing), "IIN FOVER60 FSOON130 FHIGH230 BUNDER ") << "into it from below";
    EXPECT_EQ(seen(at(2, std::nullopt)), "IIN IUNDER IOVER FSOON130 FLATER230 FHIGH230 ") << "any height may be it";
    EXPECT_EQ(seen({}), "none");
}

TEST_F(AirspaceWatchTest, AboveGroundCountsFromTheGroundThatIsKnown) {
    load(box("AC R\nAN LOW\nAL GND\nAH 1000 AGL\n", 0, 10));
    AirspaceWatch::Situation now = at(2, 2500);
    EXPECT_EQ(seen(now), "BLOW ");
    now.groundFt = 1600;
    EXPECT_EQ(seen(now), "ILOW ");
}

TEST_F(AirspaceWatchTest, WarnsOfWhatAsksForAClearance) {
    load(box("AC CTR\nAN TOWN\nAL GND\nAH 3000\nAF 118.1\n", 10, 20) + box("AC E\nAN EASY\nAL GND\nAH FL95\n", 10, 20) +
         box("AC R\nAN RANGE\nAL GND\nAH FL95\n", 15, 25));
    EXPECT_EQ(alarms(at(6)), "") << "more than a minute away";
    EXPECT_EQ(alarms(at(8)), "Airspace in 42 s: CTR TOWN  GND / 30; ");
    EXPECT_EQ(alarms(at(8, std::nullopt), 1), "Airspace in 42 s: CTR TOWN  GND / 30  height unknown; ");
    EXPECT_EQ(alarms(at(11)), "AIRSPACE CTR TOWN  GND / 30; ");
    EXPECT_TRUE(board_.acknowledge());
    EXPECT_EQ(alarms(at(11)), "") << "looked at";
    seen(at(9.9));
    EXPECT_EQ(alarms(at(11)), "") << "still the same one: it was left for a moment";
    EXPECT_EQ(alarms(at(14)), "Airspace in 21 s: R RANGE  GND / FL95; ");
    EXPECT_EQ(alarms(at(14, 3200), 3), "Airspace in 21 s: R RANGE  GND / FL95; ")
        << "just above the one that it was in";
    EXPECT_EQ(alarms(at(16)), "AIRSPACE R RANGE  GND / FL95; ") << "another one is told though the first goes on";
    EXPECT_TRUE(board_.acknowledge());
    EXPECT_EQ(alarms(at(30), 8), "");
    EXPECT_EQ(alarms(at(16)), "AIRSPACE R RANGE  GND / FL95; ") << "entered again";
    load("");
    EXPECT_EQ(alarms(at(16), 1), "") << "other files";
}

TEST_F(AirspaceWatchTest, WhoPassesAFloorIsToldHowNearAndNotThatHeEnters) {
    load(box("AC A\nAN TMA\nAL 2700\nAH FL95\n", 0, 60));
    EXPECT_EQ(seen(at(10)), "ATMA ");
    EXPECT_EQ(alarms(at(10)), "Airspace 200 ft above: A TMA  27 / FL95; ");
    EXPECT_EQ(alarms(at(10, 2160), 8), "") << "540 ft";
    AirspaceWatch::Situation metric = at(10, 2640);
    metric.altUnit = 1;
    EXPECT_EQ(alarms(metric), "Airspace 30 m above: A TMA  27 / FL95; ");
    EXPECT_EQ(alarms(at(11, 2700)), "AIRSPACE A TMA  27 / FL95; ");
    EXPECT_TRUE(board_.acknowledge());
    EXPECT_EQ(alarms(at(12, 2600), 10), "") << "at its floor, for longer than it takes to have left";
    EXPECT_EQ(alarms(at(12, 2700)), "");
    for (int i = 0; i < 10; ++i) watch_.update({}, nowMs_ += 1000);
    EXPECT_EQ(alarms(at(12, 2700)), "") << "the position was lost for a while";
    EXPECT_EQ(alarms(at(12, 2400), 12), "Airspace 300 ft above: A TMA  27 / FL95; ");
    EXPECT_EQ(alarms(at(12, 2700)), "AIRSPACE A TMA  27 / FL95; ");
}

}}  // namespace korvel
