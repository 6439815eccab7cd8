#include <gtest/gtest.h>

#include "TempFolder.h"
#include "compiler/ImportHarness.h"
#include "compiler/NavdbBuild.h"
#include "compiler/PackedFiles.h"
#include "compiler/sources/NasrImport.h"
#include "compiler/sources/SourceFiles.h"
#include "compiler/sources/ZipArchive.h"
#include "geo/Geodesy.h"
#include "navdb/NavDatabase.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/FixRecord.h"
#include "platform/FileIo.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

using Tables = std::vector<std::pair<std::string, std::string>>;

const Tables kTables{
    {"APT_BASE.csv",
        "EFF_DATE,SITE_NO,SITE_TYPE_CODE,ARPT_ID,CITY,ARPT_NAME,FACILITY_USE_CODE,LAT_DECIMAL,LONG_DECIMAL,ELEV,"
        "MAG_VARN,MAG_HEMIS,ARPT_STATUS,BCN_LENS_COLOR,ICAO_ID\n"
        "2026/08/06,1.,A,SEA,SEATTLE,SEATTLE-TACOMA INTL,PU,47.45,-122.31,432.3,15,E,O,CG,KSEA\n"
        "2026/08/06,2.,A,2S1,VASHON,VASHON MUNI,PR,47.458,-122.474,316,16,W,O,,\n"
        "2026/08/06,1.,H,WA9,KENT,PAD,PR,47.4,-122.2,,,,O,,\n"
        "2026/08/06,3.,A,OLD,KENT,OLD FIELD,PU,47.4,-122.2,,,,CP,,\n"
        "2026/08/06,4.,A,BAD,KENT,NOWHERE,PU,97.4,-122.2,,,,O,,\n"},
    {"APT_RWY.csv",
        "EFF_DATE,SITE_NO,SITE_TYPE_CODE,RWY_ID,RWY_LEN,RWY_WIDTH,SURFACE_TYPE_CODE,RWY_LGT_CODE\n"
        "2026/08/06,1.,A,16L/34R,11901,150,CONC,HIGH\n2026/08/06,2.,A,17/35,2001,60,TURF,NONE\n"
        "2026/08/06,1.,H,H1,40,40,ROOFTOP,\n2026/08/06,3.,A,01/19,40,40,TURF,\n"},
    {"APT_RWY_END.csv",
        "EFF_DATE,SITE_NO,SITE_TYPE_CODE,RWY_ID,RWY_END_ID,TRUE_ALIGNMENT,LAT_DECIMAL,LONG_DECIMAL,RWY_END_ELEV,"
        "DISPLACED_THR_LEN\n"
        "2026/08/06,1.,A,16L/34R,34R,0,47.431,-122.308,346.4,\n"
        "2026/08/06,1.,A,16L/34R,16L,180,47.464,-122.308,432.3,490\n"
        "2026/08/06,1.,A,16L/34R,16C,180,47.464,-122.308,432.3,490\n"},
    {"FRQ.csv",
        "EFF_DATE,SERVICED_FACILITY,TOWER_OR_COMM_CALL,PRIMARY_APPROACH_RADIO_CALL,FREQ,FREQ_USE\n"
        "2026/08/06,SEA,SEATTLE,,119.9,LCL/P\n2026/08/06,SEA,SEATTLE,,239.3,LCL/P\n"
        "2026/08/06,SEA,,SEATTLE,119.2(161-340),APCH/P DEP/P\n2026/08/06,2S1,,,122.9,CTAF\n2026/08/06,SEA,,,x,CTAF\n"},
    {"NAV_BASE.csv",
        "EFF_DATE,NAV_ID,NAV_TYPE,NAV_STATUS,NAME,LAT_DECIMAL,LONG_DECIMAL,MAG_VARN,MAG_VARN_HEMIS,FREQ,ALT_CODE\n"
        "2026/08/06,SEA,VORTAC,OPERATIONAL IFR,SEATTLE,47.435,-122.31,19,E,116.8,H\n"
        "2026/08/06,PAE,VOR/DME,OPERATIONAL RESTRICTED,PAINE,47.92,-122.278,20,W,110.6,VL\n"
        "2026/08/06,SEA,NDB,OPERATIONAL IFR,FAR AWAY,30,-90,,,224,\n"
        "2026/08/06,GON,VOR,SHUTDOWN,GONE,30,-90,,,112,L\n2026/08/06,SEA,VOT,OPERATIONAL IFR,T,47,-122,,,117.5,\n"
        "2026/08/06,LOW,VOR,OPERATIONAL IFR,BAND,30,-90,,,350,L\n"},
    {"FIX_BASE.csv",
        "EFF_DATE,FIX_ID,ICAO_REGION_CODE,FIX_USE_CODE,LAT_DECIMAL,LONG_DECIMAL\n"
        "2026/08/06,MCKEN,K1,RP,46.8,-122.45\n2026/08/06,VPABC,K1,VFR,47.5,-122.4\n2026/08/06,IAPPX,K1,WP,47.6,-122.5\n"
        "2026/08/06,FARRR,K1,RP,45.5,-122.6\n"},
    {"AWY_SEG_ALT.csv",
        "EFF_DATE,AWY_LOCATION,AWY_ID,FROM_POINT,TO_POINT,AWY_SEG_GAP_FLAG\n"
        "2026/08/06,C,V23,SEA,MCKEN,N\n2026/08/06,C,V23,MCKEN,FARRR,Y\n"},
    {"AWY_BASE.csv",
        "EFF_DATE,AWY_LOCATION,AWY_ID,AIRWAY_STRING\n2026/08/06,C,V23,PAE SEA MCKEN FARRR NOSUCH SEA\n"
        "2026/08/06,C,J1,SEA FARRR\n2026/08/06,C,V24,SEA\n"},
};

class Nasr : public testing::Test {
 protected:
    std::string build(const std::filesystem::path& place) {
        options_.source = NavdbSource::Nasr;
        options_.folder = place;
        options_.output = folder_ / "out.ng2";
        return buildNavdb(options_, log_);
    }
    static std::string wholeZip() { return test::zipOf(kTables); }

    TempFolder folder_;
    NavdbBuildOptions options_;
    std::vector<std::string> reported_;
    ImportLog log_{[this](const std::string& line) { reported_.push_back(line); }};
    VirtualClock clock_;
};

TEST_F(Nasr, CompilesTheZipInsideTheZipAsItIsDownloaded) {
    const auto zip = folder_.write(
        "28DaySubscription.zip", test::zipOf({{"README.txt", "x"}, {"CSV_Data/06_Aug_2026_CSV.zip", wholeZip()}}));
    EXPECT_EQ(sourceAt(zip), NavdbSource::Nasr);
    ASSERT_EQ(build(zip), "");
    NavDatabase database(clock_);
    ASSERT_EQ(database.openFile(options_.output), "");
    EXPECT_EQ(std::pair(database.files()[0]->header().expiry, database.files()[0]->header().dataCycle),
        std::pair(20260903U, 2608U));
    auto sea = dynamic_cast<const AirportRecord&>(*database.Find("a.KSEA"));
    database.loadDetails(sea);
    EXPECT_EQ(std::tuple(sea.elevationFt, sea.magVariationDeg, sea.info), std::tuple(432, 15.0, ""));
    ASSERT_EQ(sea.runways.size(), 1U);
    const auto& ends = sea.runways[0].ends;
    EXPECT_EQ(std::tuple(ends.at(0).id, ends[0].elevationFt, ends.at(1).elevationFt, sea.runways[0].info),
        std::tuple("16L", 432, 346, "Displaced thr 16L 490 ft"));
    ASSERT_EQ(sea.comms.size(), 2U);
    EXPECT_EQ(sea.comms[0].type + sea.comms[1].type, "SEATTLE TWRSEATTLE APP");
    EXPECT_NEAR(sea.comms[1].freqMhz, 119.2, 1e-6);
    EXPECT_EQ(dynamic_cast<const AirportRecord&>(*database.Find("a.2S1")).magVariationDeg, -16.0);
    ASSERT_NE(database.Find("a.SEA"), nullptr) << "as Americans call it";
    EXPECT_EQ(database.Find("a.SEA")->ident.view(), "KSEA");
    for (const auto* gone : {"a.OLD", "v.GON"}) EXPECT_EQ(database.Find(gone), nullptr) << gone;

    std::vector<std::string> routes;
    database.GetAirwayRoutes("V23", routes);
    EXPECT_EQ(routes, std::vector<std::string>{"PAE SEA MCKEN"}) << "neither over the gap nor past an unknown point";
    for (const auto& [fix, usage] : {std::pair{"f.MCKEN", kUsageLow}, {"f.VPABC", kUsageVisual},
             {"f.FARRR", kUsageHigh}, {"f.IAPPX", kUsageTerminal}})
        EXPECT_EQ(dynamic_cast<const FixRecord&>(*database.Find(fix)).usage, usage) << fix;
    for (const auto& [what, count] : {std::pair{"gaps in airways", 1U}, {"airway points that no table has", 1U},
             {"closed airports", 1U}, {"frequencies of other bands", 1U}, {"navaids out of service", 1U}})
        EXPECT_EQ(log_.omitted(what), count) << what;
    EXPECT_EQ(
        reported_, (std::vector<std::string>{"APT_BASE.csv:6: airport without position or usable identifier",
                       "APT_RWY_END.csv:4: the runway has no such end", "FRQ.csv:6: frequency missing or not a number",
                       "NAV_BASE.csv:7: frequency out of range", "AWY_BASE.csv:4: airway without name or points"}));
}

TEST_F(Nasr, ComplementsTheWorldAndWinsWhereItIsNewer) {
    ASSERT_EQ(build(folder_.write("nasr.zip", wholeZip())), "");
    folder_.write("airports.csv",
        "ident,type,name,latitude_deg,longitude_deg,elevation_ft\nKSEA,large_airport,Older,47.451,-122.311,1\n"
        "EDDL,large_airport,Abroad,51.29,6.77,147\nKBFI,medium_airport,Only there,47.53,-122.302,21\n");
    for (const auto& [expiry, elevation] : {std::pair{20260801, 432}, {20270101, 1}}) {
        NavdbBuildOptions world{.source = NavdbSource::OurAirports,
            .folder = folder_.path(),
            .output = folder_ / "world.ng2",
            .expiryYmd = expiry};
        ASSERT_EQ(buildNavdb(world, log_), "");
        NavDatabase database(clock_);
        for (const auto* name : {"world.ng2", "out.ng2"}) ASSERT_EQ(database.openFile(folder_ / name), "");
        EXPECT_EQ(dynamic_cast<const AirportRecord&>(*database.Find("a.KSEA")).elevationFt, elevation) << expiry;
        EXPECT_NE(database.Find("a.EDDL"), nullptr);
        std::string near;
        for (const auto& place : database.nearest({47.45 * kDegToRad, -122.31 * kDegToRad}, kAirportKind, 9, 20.0))
            near += std::string(place.place.ident.view()) + " ";
        EXPECT_EQ(near, "KSEA KBFI WA9 2S1 ") << "each once";
    }
}

TEST(NasrImport, LeadsAnAirwayOverTheNearestOfSeveralPlacesOfOneName) {
    test::Imported in;
    ImportContext context{in.log, {}};
    NasrImport import(in.log, in.data);
    ASSERT_EQ(import.importFixes({"f",
                  openText("EFF_DATE,FIX_ID,LAT_DECIMAL,LONG_DECIMAL\n,TWICE,30,-90\n,AAA,47,-122\n,TWICE,47,-121\n"),
                  context}),
        "");
    ASSERT_EQ(import.importAirways({"a", openText("EFF_DATE,AWY_ID,AIRWAY_STRING\n,V1,AAA TWICE AAA\n"), context}), "");
    EXPECT_EQ(in.data.airways.points().back().position->lat, 47.0);
}

TEST_F(Nasr, ReadsAFolderOfTablesAndOfSingleZips) {
    for (std::size_t i = 0; i < kTables.size(); ++i)
        folder_.write(i % 2 == 0 ? kTables[i].first : kTables[i].first + ".ZIP",
            i % 2 == 0 ? kTables[i].second : test::zipOf({kTables[i]}));
    EXPECT_EQ(build(folder_.path()), "");
    EXPECT_EQ(log_.taken("airway segments"), 3U);
}

TEST_F(Nasr, LeavesTheOldDatabaseWhenTheDownloadIsTornOrTheWorkIsBrokenOff) {
    folder_.write("out.ng2", "as it was");
    const std::string whole = wholeZip();
    for (const std::size_t size : {whole.size() / 2, whole.size() - 1, std::size_t{0}})
        EXPECT_NE(build(folder_.write("torn.zip", whole.substr(0, size))), "") << size;
    EXPECT_NE(build(folder_.write("page.zip", "<html>Not found</html>")), "");
    std::string damaged = whole;
    damaged[whole.size() / 5] ^= 0x20;
    EXPECT_NE(build(folder_.write("damaged.zip", damaged)), "") << "its checksum tells";
    const auto sound = folder_.write("sound.zip", whole);
    for (int asked = 0; asked < 9; ++asked) {
        options_.goesOn = [left = asked]() mutable { return left-- > 0; };
        EXPECT_EQ(build(sound), kBuildBrokenOff) << asked;
    }
    EXPECT_EQ(readWholeFile(options_.output), "as it was");
    options_.goesOn = {};
    EXPECT_EQ(build(sound), "");
}

TEST(ZipArchive, UnpacksNoMoreThanItsDirectorySays) {
    const std::string zeros(std::size_t{1} << 22, '\0');
    std::string bomb = test::zipOf({{"A.csv", zeros}});
    const std::size_t row = bomb.rfind("PK\x01\x02");
    const auto readAll = [](const std::string& bytes) {
        const auto archive = ZipArchive::open(fileInMemory(bytes));
        return archive ? archive->readWhole(archive->entries().at(0), std::uint64_t{1} << 23) : std::nullopt;
    };
    EXPECT_EQ(readAll(bomb), zeros);
    EXPECT_FALSE(ZipArchive::open(fileInMemory(bomb))->readWhole({.name = "A.csv", .size = 9}, 8));
    bomb[row + 26] = 0;  // the size's third byte: it claims less
    EXPECT_EQ(readAll(bomb), std::nullopt);
    std::string many = test::zipOf({{"A.csv", "x"}});
    many[many.size() - 12] = 2;  // one row more than there is
    EXPECT_EQ(ZipArchive::open(fileInMemory(many)), nullptr);
    const std::string nested = test::zipOf({{"1.zip", test::zipOf({{"2.zip", test::zipOf({{"B.csv", "x"}})}})}});
    EXPECT_TRUE(SourceFiles::inZip(fileInMemory(nested)).all().empty()) << "no deeper than one in another";
}

TEST(AiracCycle, IsTheOneInForceOnADay) {
    for (const auto& [day, yycc] : {std::pair{20260806, 2608}, {20260807, 2608}, {20260805, 2607}, {20260101, 2513},
             {20210127, 2014}, {20210128, 2101}, {20240111, 2313}})
        EXPECT_EQ(AiracCycle::inForceOn(day)->yycc(), yycc) << day;
    for (const int day : {0, 20260230, 19000101, 21000101}) EXPECT_FALSE(AiracCycle::inForceOn(day)) << day;
}

}}  // namespace korvel
