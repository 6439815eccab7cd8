#include <fstream>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/Charts.h"
#include "cockpit/TerrainWatch.h"
#include "geo/Geodesy.h"
#include "ground/terrain/TerrainStore.h"
#include "navdb/records/AirportRecord.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

/// A tile in which the ground lies 1000 m high, and a field in its middle.
class TerrainWatchTest : public testing::Test {
 protected:
    TerrainWatchTest() {
        folder_.write("x.UDB.TXT",
            "ARPT_BEGIN\nID=XFLD\nNAME=Field\nPOSN.LAT=47.5\nPOSN.LON=8.5\nELEV=3281\nRWY1.LEN=3000\nRWY1.LO.ID=18\n"
            "RWY1.LO.POSN.LAT=47.505\nRWY1.LO.POSN.LON=8.5\nRWY1.HI.ID=36\nRWY1.HI.POSN.LAT=47.495\n"
            "RWY1.HI.POSN.LON=8.5\nARPT_END\n");
        charts_.load(std::vector{folder_.path()});
        std::string bytes;
        for (int i = 0; i < 1201 * 1201; ++i) bytes += "\x03\xE8";
        std::ofstream(folder_.path() / "N47E008.hgt", std::ios::binary) << bytes;
        terrain_.open({folder_.path()});
        terrain_.waitUntilSettled();
        watch_.update({.position = at(47.5)});
        terrain_.waitUntilSettled();
    }
    static GeoPoint at(double lat) { return {lat * kDegToRad, 8.5 * kDegToRad}; }

    /// Flying north at 4000 ft, 700 above the ground.
    TerrainWatch::Situation flying(double lat) {
        return {.position = at(lat), .trackTrueDeg = 0, .groundSpeedKt = 100, .altitudeFt = 4000};
    }
    std::optional<double> clearance(const TerrainWatch::Situation& now) {
        watch_.update(now);
        return watch_.clearance().withinMinuteFt;
    }

    TempFolder folder_;
    VirtualClock clock_;
    Charts charts_{clock_, {}};
    AlarmBoard board_;
    TerrainStore terrain_;
    TerrainWatch watch_{terrain_, charts_.database(), board_};
};

TEST_F(TerrainWatchTest, TellsHowHighThePathLeadsAboveTheGround) {
    EXPECT_NEAR(clearance(flying(47.3)).value(), 4000 - 3281, 1);
    TerrainWatch::Situation now = flying(47.3);
    now.verticalSpeedFpm = -500;
    EXPECT_NEAR(clearance(now).value(), 4000 - 3281 - 500, 20);
    for (const auto unknown : {&TerrainWatch::Situation::trackTrueDeg, &TerrainWatch::Situation::groundSpeedKt,
             &TerrainWatch::Situation::altitudeFt}) {
        TerrainWatch::Situation less = flying(47.3);
        less.*unknown = std::nullopt;
        EXPECT_EQ(clearance(less), std::nullopt);
    }
    now.groundSpeedKt = kTerrainFromKt - 1;
    EXPECT_EQ(clearance(now), std::nullopt) << "it rolls";
    EXPECT_EQ(clearance({}), std::nullopt);
}

TEST_F(TerrainWatchTest, NobodyWhoLandsIsWarned) {
    TerrainWatch::Situation low = flying(47.48);
    low.altitudeFt = 3400;
    EXPECT_EQ(clearance(low), std::nullopt) << "a mile from the runway";
    low.position = at(47.43);
    EXPECT_TRUE(clearance(low)) << "four from it";
    AirportRecord field;
    field.position = at(47.5);
    field.elevationFt = 3281;
    low.destination = &field;
    EXPECT_EQ(clearance(low), std::nullopt) << "on the way down to it";
    low.position = at(47.3);
    EXPECT_TRUE(clearance(low)) << "far before it";
}

}}  // namespace korvel
