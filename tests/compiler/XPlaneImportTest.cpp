#include <gtest/gtest.h>

#include "TempFolder.h"
#include "compiler/ImportHarness.h"
#include "compiler/sources/XPlaneFolder.h"

namespace korvel { namespace {

using test::Imported;
using Lines = std::vector<std::string>;

TEST(XPlaneFile, RefusesOtherFilesAndOtherVersions) {
    const std::tuple<const char*, const char*> cases[] = {
        {"", "in.dat: not an X-Plane data file"}, {"I\n", "in.dat: not an X-Plane data file"},
        {"id,ident\n1,2\n", "in.dat: not an X-Plane data file"},
        {"I\nVersion 810\n", "in.dat: not an X-Plane data file"},
        {"A\n715 Version\n", "in.dat: format version 715 is not supported (810 to 1299 are)"},
        {"I\n1200 Version\n99\n", ""},
        {"\r\n810 Version - data cycle 2013.10\r\n", ""},  // as one distributor writes it
    };
    for (const auto& [text, refused] : cases) {
        Imported in;
        in.xplane(importXPlaneNavaids, text);
        EXPECT_EQ(in.refused, refused) << text;
    }
}

TEST(XPlaneAirports, ReadsRunwaysFrequenciesAndMetadataOfAllVersions) {
    Imported in;
    in.xplane(importXPlaneAirports,
        "I\n1000 Version - data cycle 2013.10, build 20131335\n\n"
        "1      433 1 0 KSEA Seattle Tacoma Intl\n"
        "100   46.02   2   1 0.00 1 3 0 34R  47.43117533 -122.30804122  121.92    0.00 3  8 1 "
        "0 16L  47.46379733 -122.30775222    0.00   46.02 3  2 1 1\n"
        "18   47.44358633 -122.30281222 1 BCN\n"
        "50 11800 ATIS\n"
        "54 11992 SEATTLE\n"
        "1054 119905 SEATTLE TWR\n"
        "21 1 2 3 a row of no interest\n"
        "102 H1 47.0 -122.0 0 20 20 1 0 0 0 0\n"
        "16 0 0 0 W55 [S] Kenmore Air Harbor Seaplane Base\n"
        "101 609.60 0 16 47.620 -122.340 34   47.615 -122.338\n"
        "17 120 0 0 XWA1 [H] Hospital\n"
        "102 H1 47.1 -122.1 90.08 20.12 20.12 33 0 0 0.00 1\n"
        "1 15 1 0 VHXX [X] CLOSED Kai Tak\n"
        "100 54.86 2 0 0 1 3 0 13 22.3 114.1 0 0 3 0 0 2 31 22.3 114.2 0 0 3 1 0 2\n"
        "1 10 0 0 XLD42 Strip\n"
        "100 20 38 0 0 0 0 0 09 50.0 8.0 0 0 0 0 0 0 27 50.0 8.01 0 0 0 0 0 0\n"
        "1302 icao_code EDXX\n1302 datum_lat 50.5\n1302 datum_lon 8.5\n1302 city\n"
        "1 10 0 0 XOLD Gone\n"
        "100 20 3 0 0 0 0 0 09 50.0 8.0 0 0 0 0 0 0 27 50.0 8.01 0 0 0 0 0 0\n"
        "1302 closed 1\n"
        "1 10 0 0 XNONE Without a runway\n"
        "99\n1 10 0 0 LATE Behind the end\n");
    EXPECT_EQ(in.refused, "");
    EXPECT_EQ(in.reported, Lines{});
    ASSERT_EQ(in.data.airports.size(), 4U);
    const auto& sea = in.data.airports[0];
    EXPECT_EQ(std::tuple(sea.ident, sea.name, sea.elevationFt, sea.hasBeacon),
        std::tuple("KSEA", "Seattle Tacoma Intl", 433, true));
    EXPECT_NEAR(sea.position.lat, 47.447486, 1e-6);
    ASSERT_EQ(sea.runways.size(), 1U);
    const auto& runway = sea.runways[0];
    EXPECT_EQ(runway.ends[0].id + runway.ends[1].id, "16L34R") << "the low end first, whatever the file's order";
    EXPECT_NEAR(*runway.lengthFt, 11900, 10);
    EXPECT_EQ(std::tuple(runway.widthFt, runway.surface, runway.hard, runway.lighted, runway.info),
        std::tuple(151, "CONC", true, true, "Displaced thr 34R 400 ft"));
    const std::pair<const char*, double> comms[] = {
        {"ATIS", 118.0}, {"SEATTLE TWR", 119.925}, {"SEATTLE TWR", 119.905}};
    ASSERT_EQ(sea.comms.size(), std::size(comms));
    for (std::size_t i = 0; i < sea.comms.size(); ++i) {
        EXPECT_EQ(sea.comms[i].type, comms[i].first);
        EXPECT_NEAR(sea.comms[i].freqMhz, comms[i].second, 1e-9);
    }
    const auto& lake = in.data.airports[1];
    EXPECT_EQ(std::tuple(lake.kind, lake.name, lake.runways.at(0).surface),
        std::tuple(AirportKind::Seaplane, "Kenmore Air Harbor Seaplane Base", "WATER"));
    EXPECT_EQ(lake.info, lake.name);  // 20 characters are shown of the name
    const auto& pad = in.data.airports[2];
    EXPECT_EQ(std::tuple(pad.kind, pad.runways.at(0).ends[0].headingTrue, pad.runways.at(0).lengthFt),
        std::tuple(AirportKind::Heliport, 90.08, 66));
    const auto& strip = in.data.airports[3];
    EXPECT_EQ(
        std::tuple(strip.ident, strip.position.lat, strip.runways.at(0).surface), std::tuple("EDXX", 50.5, "ASPH"));
    EXPECT_EQ(in.log.omitted("closed airports"), 2U);
    EXPECT_EQ(in.log.omitted("airports without a runway or position"), 1U);
    EXPECT_EQ(in.log.omitted("helipads of airports with runways"), 1U);
}

TEST(XPlaneAirports, SkipsMalformedLinesAndTheRowsOfARefusedAirport) {
    Imported in;
    in.xplane(importXPlaneAirports,
        "I\n1100 Version\n"
        "100 20 3 0 0 0 0 0 09 50.0 8.0 0 0 0 0 0 0 27 50.0 8.01\n"
        "1 high 0 0 XBAD Bad\n"
        "100 20 3 0 0 0 0 0 09 50.0 8.0 0 0 0 0 0 0 27 50.0 8.01\n"
        "1 10 0 0 XGOOD Good\n"
        "100 20 3 0 0 0 0 0 09 50.0 8.0 0 0 0 0 0 0 27 50.0\n"
        "100 wide 3 0 0 0 0 0 09 50.0 8.0 0 0 0 0 0 0 27 50.0 8.01\n"
        "100 20 3 0 0 0 0 0 09 179.9 -179.99 0 0 0 0 0 0 27 50.0 8.01\n"
        "54 freq TWR\n50 1 ATIS\nx\n101\n18 1\n"
        "101 6 0 02 50.0 180.0 20 50.00001 -180.0\n"
        "100 20 3 0 0 0 0 0 18 50.0 179.999 0 0 0 0 0 0 36 50.0 -179.999 0 0 0 0 0 0\n");
    EXPECT_EQ(in.refused, "");
    EXPECT_EQ(in.reported,
        (Lines{"in.dat:3: runway before the first airport",
            "in.dat:4: airport without elevation or identifier; its rows are skipped",
            "in.dat:7: runway end without designator or position", "in.dat:8: runway without width or surface",
            "in.dat:9: runway end without designator or position", "in.dat:10: frequency is not a number",
            "in.dat:11: frequency out of range", "in.dat:12: row code missing", "in.dat:13: water runway without width",
            "in.dat:14: beacon without position", "in.dat:15: runway whose ends are one place"}));
    ASSERT_EQ(in.data.airports.size(), 1U);
    ASSERT_EQ(in.data.airports[0].runways.size(), 1U);
    EXPECT_NEAR(*in.data.airports[0].runways[0].lengthFt, 469, 2);  // not around the world
    EXPECT_NEAR(std::abs(in.data.airports[0].position.lon), 180.0, 1e-6);
}

auto fieldsOf(const SourceNavaid& navaid) {
    return std::tuple(navaid.kind, navaid.ident, navaid.name, navaid.region, navaid.position.lat, navaid.position.lon,
        navaid.frequency, navaid.usage, navaid.variation);
}

TEST(XPlaneNavaids, ReadsBothColumnLayouts) {
    const std::tuple<const char*, const char*, SourceNavaid> cases[] = {
        {"810", "3  47.43538889 -122.30961111    354 11680 130   19.0 SEA  SEATTLE VORTAC",
            {NavaidKind::Vortac, "SEA", "SEATTLE", "", {47.43538889, -122.30961111}, 116.8, kUsageBoth, 19.0}},
        {"810", "3  42.35744444 -070.98955556     20 11270  40  -16.0 BOS  BOSTON VOR-DME",
            {NavaidKind::VorDme, "BOS", "BOSTON", "", {42.35744444, -70.98955556}, 112.7, kUsageLow, -16.0}},
        {"810", "2  38.08777778 -077.32491667      0   396  15    0.0 APH  A P HILL NDB",
            {NavaidKind::Ndb, "APH", "A P HILL", "", {38.08777778, -77.32491667}, 396.0, kUsageTerminal, {}}},
        {"1100", "2  57.1 9.6 0 398 75 0.0 GL   ENRT EK AALBORG NDB/DME",
            {NavaidKind::NdbDme, "GL", "AALBORG", "EK", {57.1, 9.6}, 398.0, kUsageBoth, {}}},
        {"1150", " 3  52.2  8.2 0 11430 25 1.000  OSN ENRT ED OSNABRUECK VOR",
            {NavaidKind::Vor, "OSN", "OSNABRUECK", "ED", {52.2, 8.2}, 114.3, kUsageTerminal, 1.0}},
        {"1200", "12 52.2 8.2 0 11430 25 0.0 OSN ENRT ED OSNABRUECK DME",
            {NavaidKind::DmeOnly, "OSN", "OSNABRUECK", "ED", {52.2, 8.2}, 114.3, kUsageTerminal, {}}},
        {"1200", "13 52.2 8.2 0 13310 25 0.0 LCH ENRT ED LECHFELD TACAN",
            {NavaidKind::DmeOnly, "LCH", "LECHFELD", "ED", {52.2, 8.2}, 133.1, kUsageTerminal, {}}},
    };
    for (const auto& [version, line, navaid] : cases) {
        Imported in;
        in.xplane(importXPlaneNavaids, std::string("I\n") + version + " Version\n" + line);
        ASSERT_EQ(in.data.navaids.size(), 1U) << line;
        EXPECT_EQ(fieldsOf(in.data.navaids[0]), fieldsOf(navaid)) << line;
    }
}

TEST(XPlaneNavaids, LeavesLandingSystemsOutAndReportsMalformedLines) {
    Imported in;
    in.xplane(importXPlaneNavaids,
        "I\n810 Version\n"
        "4 47.4 -122.3 338 11030 18 180.3 ISNQ KSEA 16L ILS-cat-III\n"
        "9 47.4 -122.3 338 0 0 180.3 ---- KSEA 16L IM\n"
        "12 47.4 -122.3 354 11030 18 0.0 ISNQ KSEA 16L DME-ILS\n"
        "16 47.4 -122.3 354 11030 18 0.0 X Y\n"
        "3 91 -122.3 354 11680 130 19.0 SEA SEATTLE VORTAC\n"
        "3 47.4 -122.3 354 20000 130 19.0 SEA SEATTLE VORTAC\n"
        "3 47.4 -122.3 354 11680 far 19.0 SEA SEATTLE VORTAC\n"
        "2 47.4 -122.3 354 396\n"
        "2 55.1 38.2 514 732 80 0.0 \xC0\xCE AKSINYINO NDB\n"
        "VOR\n");
    EXPECT_TRUE(in.data.navaids.empty());
    EXPECT_EQ(in.log.omitted("parts of instrument landing systems"), 3U);
    EXPECT_EQ(in.log.omitted("navaid rows of other kinds"), 1U);
    EXPECT_EQ(
        in.reported, (Lines{"in.dat:7: latitude or longitude missing or out of range",
                         "in.dat:8: frequency out of range", "in.dat:9: frequency, range or variation is not a number",
                         "in.dat:10: frequency, range or variation is not a number",
                         "in.dat:11: identifier missing or not usable", "in.dat:12: row code missing"}));
}

TEST(XPlaneFixes, ReadsAllColumnLayouts) {
    const std::tuple<const char*, const char*, const char*, std::optional<Usage>> cases[] = {
        {"600", " 47.733334  008.283334 06TRA", "", std::nullopt},
        {"1100", " 50.88166700  12.58666700 06TRA ENRT ZZ", "ZZ", std::nullopt},
        {"1101", "46.646819444 -123.722388889 06TRA KSEA K1 4530263", "K1", kUsageTerminal},
        {"1101", "46.6 -123.7 06TRA KSEA K1 2105430", "K1", kUsageVisual},
        {"1200", " 46.6 -123.7  06TRA ENRT K1 2105430 BARN ON THE HILL", "K1", kUsageVisual},
    };
    for (const auto& [version, line, region, usage] : cases) {
        Imported in;
        in.xplane(importXPlaneFixes, std::string("I\n") + version + " Version\n" + line + "\n99\n");
        ASSERT_EQ(in.data.fixes.size(), 1U) << line;
        EXPECT_EQ(in.data.fixes[0].ident, "06TRA");
        EXPECT_EQ(in.data.fixes[0].region, region);
        EXPECT_EQ(in.data.fixes[0].usage, usage) << line;
    }
    Imported in;
    in.xplane(importXPlaneFixes, "I\n600 Version\n47.7 8.2\n47.7 east FIX\n47.7 8.2 FIX\n");
    EXPECT_EQ(in.reported, (Lines{"in.dat:3: identifier missing or not usable",
                               "in.dat:4: latitude or longitude missing or out of range"}));
    EXPECT_EQ(in.data.fixes.size(), 1U);
}

TEST(XPlaneAirways, ReadsBothColumnLayouts) {
    Imported old;
    old.xplane(importXPlaneAirways,
        "I\n640 Version\n"
        "AMIBO  34.973889  021.658056 ARLOS  34.625278  023.000000 1 095 195 M871-MT E-V9\n"
        "AMIBO  34.973889  021.658056 ARLOS  34.625278  023.000000 2 195 460 V9\n"
        "AMIBO  34.973889  021.658056 ARLOS  34.625278  023.000000 3 195 460 V9\n"
        "AMIBO  34.973889  021.658056 ARLOS  34.625278  023.000000 2 195 460\n"
        "AMIBO  34.973889  021.658056 ARLOS  north 023.000000 2 195 460 V9\n");
    EXPECT_EQ(old.log.malformedLines(), 3U);
    const auto& airways = old.data.airways.airways();
    ASSERT_EQ(airways.size(), 3U);
    EXPECT_TRUE(airways.contains("M871") && airways.contains("MT E"));
    EXPECT_EQ(airways.find("V9")->second.size(), 2U);
    ASSERT_EQ(old.data.airways.points().size(), 2U);
    EXPECT_TRUE(old.data.airways.points()[1].onLow && old.data.airways.points()[1].onHigh);

    Imported now;
    now.xplane(importXPlaneAirways,
        "I\n1100 Version - data cycle 1802\n"
        "  OSN ED  3  ABBEY ED 11 N 1    50   245 L602-Z20\n"
        "ABBEY ED 11   RK  ED  2 F 2   245   660 L602\n"
        "ABBEY ED 12   RK  ED  2 F 2   245   660 L602\n");
    EXPECT_EQ(now.reported, Lines{"in.dat:5: not two points, a level of 1 or 2 and a name"});
    ASSERT_EQ(now.data.airways.points().size(), 3U);
    EXPECT_EQ(now.data.airways.points()[0].type, AirwayPointType::Vhf);
    EXPECT_EQ(now.data.airways.points()[1].region, "ED");
    EXPECT_EQ(now.data.airways.points()[2].type, AirwayPointType::Ndb);
    EXPECT_EQ(now.data.airways.airways().find("L602")->second.size(), 2U);
    EXPECT_EQ(now.data.cycle->yycc(), 1802);
}

TEST(XPlaneFolder, PrefersThePilotsOwnData) {
    const TempFolder folder;
    const auto found = [&] {
        const XPlaneFiles files = findXPlaneFiles(folder.path());
        std::string names;
        for (const auto& path : {files.apt, files.nav, files.fix, files.awy})
            names += path.empty() ? "- " : path.lexically_relative(folder.path()).generic_string() + ' ';
        return names;
    };
    EXPECT_EQ(found(), "- - - - ");
    folder.write("nav.dat.gz", "");
    folder.write("apt.dat", "");
    EXPECT_EQ(found(), "apt.dat nav.dat.gz - - ");
    folder.write("Resources/default data/earth_nav.dat", "");
    folder.write("Resources/default data/earth_awy.dat", "");
    folder.write("Custom Data/earth_awy.dat", "");
    folder.write("Global Scenery/Global Airports/Earth nav data/apt.dat", "");
    std::filesystem::create_directory(folder / "earth_fix.dat");
    EXPECT_EQ(found(),
        "Global Scenery/Global Airports/Earth nav data/apt.dat Resources/default data/earth_nav.dat - "
        "Custom Data/earth_awy.dat ");
}

}}  // namespace korvel
