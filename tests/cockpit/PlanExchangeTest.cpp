#include <gtest/gtest.h>

#include "CommaLocale.h"
#include "TempFolder.h"
#include "cockpit/FileOpening.h"
#include "cockpit/FlightFixture.h"
#include "cockpit/PlanExchange.h"
#include "exchange/PlanImport.h"
#include "platform/FileIo.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

constexpr std::string_view kGpx =
    R"(<gpx><wpt lat="47" lon="8"><name>Barn</name></wpt><rte><name>Home</name><rtept lat="47" lon="8"><name>XA</name>)"
    R"(</rtept><rtept lat="47.5" lon="8"><name>XB</name></rtept></rte><trk><trkseg><trkpt lat="47" lon="8">)"
    R"(<time>2026-08-22T10:11:12Z</time></trkpt></trkseg></trk></gpx>)";
constexpr std::string_view kPlaces =
    "NAVAID_BEGIN\nID=XA\nNAME=A\nTYPE=VOR\nPOSN.LAT=47\nPOSN.LON=8\nFREQ=112.0\nNAVAID_END\n"
    "NAVAID_BEGIN\nID=XB\nNAME=B\nTYPE=VOR\nPOSN.LAT=47.5\nPOSN.LON=8\nFREQ=113.0\nNAVAID_END\n"
    "NAVAID_BEGIN\nID=XC\nNAME=C\nTYPE=VOR\nPOSN.LAT=48\nPOSN.LON=8\nFREQ=114.0\nNAVAID_END\n";

class PlanExchangeTest : public testing::Test {
 protected:
    PlanExchangeTest() {
        folder_.write("x.UDB.TXT", kPlaces);
        program_.charts.load(std::vector{folder_.path()});
    }
    std::filesystem::path file(std::string_view name, std::string_view bytes) {
        folder_.write(name, bytes);
        return folder_.path() / name;
    }
    ActivePlan& plan() { return program_.flight.plan(); }
    std::string keys() {
        std::string keys;
        for (const PlanWaypoint& entry : plan().entries()) keys += entry.record->key + ' ';
        return keys;
    }

    const CommaLocale comma_;
    TempFolder folder_;
    VirtualClock clock_;
    FlightByCharts program_{clock_};
};

TEST_F(PlanExchangeTest, AFileIsWhatItsContentSays) {
    const auto found = FileOpening::read(file("wrong.trk", kGpx), clock_);
    EXPECT_TRUE(found.content.plan && found.content.track && found.content.waypoints);
    EXPECT_EQ(found.bytes, kGpx);
    EXPECT_EQ(found.track.slots.size(), 1U);
    EXPECT_FALSE(found.isOwnTrack);
    const std::string own = "20261025,005950,47.500000,-122.300000,100,180,3000\r\n";
    for (const auto& [name, isTrack] : {std::pair{"own.TRK", true}, {"own.fp", false}}) {
        FileOpening opening(file(name, own), clock_);
        while (!opening.isFinished()) std::this_thread::yield();
        const auto taken = opening.take();
        EXPECT_FALSE(taken.content.plan || taken.content.track || taken.content.waypoints) << name;
        EXPECT_EQ(taken.isOwnTrack, isTrack);
        EXPECT_EQ(taken.track.slots.size(), isTrack ? 1U : 0U);
    }
    const std::string plan = R"(<gpx><rte><rtept lat="47" lon="8"/></rte></gpx>)";
    const std::string track = R"(<gpx><trk><trkseg><trkpt lat="47" lon="8"/></trkseg></trk></gpx>)";
    for (const std::string& only : {plan, track}) {
        const auto one = FileOpening::read(file("one", only), clock_);
        EXPECT_EQ(one.content.plan, only == plan);
        EXPECT_EQ(one.bytes, only);
    }
    EXPECT_FALSE(FileOpening::read(folder_.path() / "absent.gpx", clock_).content.plan);
}

TEST_F(PlanExchangeTest, AnImportedPlanIsOfNoFileAndUndoBringsTheOldOneBack) {
    ASSERT_EQ(plan().enterRoute("XB XC"), "");
    ASSERT_EQ(plan().saveAs(folder_.path() / "old.fp"), "");
    ImportedPlan imported = importPlan(std::string(kGpx), 1, program_.charts.database(), plan().fixes());
    ASSERT_EQ(imported.error, "");
    plan().replaceWhole(std::move(imported.entries));
    EXPECT_EQ(keys(), "v.XA v.XB ");
    EXPECT_EQ(plan().file(), "");
    EXPECT_TRUE(plan().changed());
    EXPECT_TRUE(plan().undo());
    EXPECT_EQ(keys(), "v.XB v.XC ");
    EXPECT_EQ(plan().file(), folder_.path() / "old.fp");
    EXPECT_FALSE(plan().changed());
}

TEST_F(PlanExchangeTest, ARouteThatSharesNoPlaceIsAnotherPlan) {
    ASSERT_EQ(plan().enterRoute("XA XB"), "");
    ASSERT_EQ(plan().saveAs(folder_.path() / "old.fp"), "");
    ASSERT_EQ(plan().enterRoute("XB XA"), "");
    EXPECT_NE(plan().file(), "") << "the same, made better";
    ASSERT_EQ(plan().enterRoute("XC"), "");
    EXPECT_EQ(plan().file(), "") << "nothing is written over by the next save";
}

TEST_F(PlanExchangeTest, WritesWhatTheEndingNamesAndReadsItBack) {
    ASSERT_EQ(plan().enterRoute("XA@55 XC"), "");
    for (const char* name : {"out.gpx", "out.FPL", "out.fms"}) {
        const auto path = folder_.path() / name;
        EXPECT_EQ(exportPlan(program_.flight, path, clock_), "");
        const ImportedPlan back =
            importPlan(readWholeFile(path).value_or(""), 1, program_.charts.database(), plan().fixes());
        ASSERT_EQ(back.entries.size(), 2U) << name << back.error;
        EXPECT_EQ(back.entries[1].record->key, "v.XC") << name;
    }
    EXPECT_EQ(exportPlan(program_.flight, folder_.path() / "out.doc", clock_),
        "out.doc ends like no format that can be written");
    EXPECT_NE(exportPlan(program_.flight, folder_.path() / "absent" / "out.gpx", clock_), "");
    EXPECT_NE(exportTrack(program_.flight, folder_.path() / "out.gpx", clock_), "") << "there is none";
    ASSERT_EQ(program_.flight.track().show(FileOpening::read(file("t.gpx", kGpx), clock_).track), "");
    EXPECT_EQ(exportTrack(program_.flight, folder_.path() / "out.igc", clock_), "");
    EXPECT_EQ(FileOpening::read(folder_.path() / "out.igc", clock_).track.slots.size(), 1U);
}

TEST_F(PlanExchangeTest, KeepsWaypointsBesideThoseKeptBefore) {
    const auto other = folder_.path() / "kept";
    for (const char* name : {"fields.UDB.TXT", "fields-2.UDB.TXT"}) {
        const KeptWaypoints kept = keepWaypoints(std::string(kGpx), other, "fields");
        EXPECT_EQ(kept.error, "");
        EXPECT_EQ(kept.count, 1U);
        EXPECT_EQ(kept.file, other / name);
        EXPECT_NE(readWholeFile(kept.file).value_or("").find("BARN"), std::string::npos);
    }
    EXPECT_NE(keepWaypoints("x", other, "fields").error, "");
}

}}  // namespace korvel
