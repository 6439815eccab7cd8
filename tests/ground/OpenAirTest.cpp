#include <cmath>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "geo/Geodesy.h"
#include "ground/airspace/AirspaceSet.h"
#include "ground/airspace/OpenAir.h"
#include "ground/airspace/OpenAirValues.h"
#include "platform/FileIo.h"

namespace korvel { namespace {

GeoPoint at(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

TEST(OpenAir, PositionsInAllTheirWays) {
    const struct {
        const char* text;
        double lat, lon;
        const char* rest;
    } cases[] = {
        {"50:32:00N 008:00:00E", 50.53333, 8, ""},
        {"50:32:00.0N008:00:00.5E", 50.53333, 8.000139, ""},
        {"54:08:31.N 1:2:3 w", 54.14194, -1.034167, ""},
        {"47:40.000 n 008:44.800 e", 47.66667, 8.746667, ""},
        {"13:10 S\t 13:10 W*x", -13.16667, -13.16667, "*x"},
        {"48:59:60N, 9E", 49, 9, ""},
        {"47:40.5N 008:30:30E, 1", 47.675, 8.508333, ", 1"},
        {"90N 180W", 90, -180, ""},
    };
    for (const auto& one : cases) {
        std::string_view text = one.text;
        const auto point = takePosition(text);
        ASSERT_TRUE(point) << one.text;
        EXPECT_NEAR(point->lat * kRadToDeg, one.lat, 1e-5) << one.text;
        EXPECT_NEAR(point->lon * kRadToDeg, one.lon, 1e-5) << one.text;
        EXPECT_EQ(text, one.rest) << one.text;
    }
    for (std::string_view text :
        {"", "91:00:00N 8E", "47:61:00N 8E", "47N", "47N 181E", "47 8", "8E 47N", "47::2N 8E", "-4N 8E"}) {
        const std::string_view before = text;
        EXPECT_FALSE(takePosition(text)) << before;
        EXPECT_EQ(text, before);
    }
}

TEST(OpenAir, HeightsInAllTheirWays) {
    using enum LimitReference;
    const struct {
        const char* text;
        std::optional<int> ft;
        LimitReference reference;
    } cases[] = {
        {"6400MSL", 6400, Msl},
        {"4500ALT", 4500, Msl},
        {"1000 ft AMSL", 1000, Msl},
        {"3500ft", 3500, Msl},
        {"0", 0, Msl},
        {"FL 95", 9500, FlightLevel},
        {"FL095", 9500, FlightLevel},
        {"fl95", 9500, FlightLevel},
        {"19501ft STD", 19501, FlightLevel},
        {"500 AGL", 500, Agl},
        {"500ft GND", 500, Agl},
        {"1000 SFC", 1000, Agl},
        {"100m", 328, Msl},
        {"1500 m AGL", 4921, Agl},
        {"300m MSL", 984, Msl},
        {"SFC", 0, Agl},
        {"GND ", 0, Agl},
        {"UNL", {}, Unlimited},
        {"UNLIMITED", {}, Unlimited},
        {"UNL FT", {}, Unlimited},
        {"NOTAM", {}, Unknown},
        {"BCTA FT", {}, Unknown},
        {"FL", {}, Unknown},
        {"", {}, Unknown},
        {"1000 ft or so", {}, Unknown},
        {"5000ft MSL *why", 5000, Msl},
    };
    for (const auto& one : cases) {
        const AltitudeLimit limit = parseLimit(one.text);
        EXPECT_EQ(limit.ft, one.ft) << one.text;
        EXPECT_EQ(limit.reference, one.reference) << one.text;
    }
    EXPECT_EQ(parseLimit(" FL 95 * low").text, "FL 95");
}

TEST(OpenAir, EveryDialectAndEveryFault) {
    const auto bytes = readWholeFile(std::string(KORVEL_TEST_DATA) + "/ground/openair-dialects.txt");
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(looksLikeOpenAir(*bytes));
    EXPECT_FALSE(looksLikeOpenAir("FPL 0\r\nFWP p a EDVV N 52 22.5 E 9 41.0 2500\r\n"));
    const OpenAirFile file = readOpenAir(*bytes);
    const struct {
        const char* name;
        const char* airspaceClass;
        double areaNm2;
        std::size_t points;
        double lat, lon;  ///< inside
        double outLat, outLon;
    } good[] = {
        {"ALPHA 1 circle", "D", 78.5, 72, 47.05, 8.05, 47.09, 8},
        {"BRAVO 2 open ring (NOTAM)", "R", 68.7, 4, 46.4, 8.1, 46.51, 8.1},
        {"CHARLIE 3 DA ccw", "C", 78.5, 20, 47.4, 8.6, 47.6, 8.6},
        {"DELTA 4 DB cw by default", "C", 78.5, 20, 47.6, 8.6, 47.4, 8.6},
        {"ECHO 5 uneven arc", "CTR", 21.2, 20, 46.03, 9.05, 45.97, 9.05},
        {"FOXTROT 6 tiny arc", "E", 84, 5, 45.6, 8.1, 45.7, 8.1},
        {"GOLF 8 ceiling by NOTAM", "Q", 28.3, 72, 45.04, 8, 45.06, 8},
        {"HOTEL 9 date line", "P", 3434, 4, -17.5, 179.9, -17.5, 179.4},
        {"INDIA 10 extended", "UNC", 19.6, 72, 47.2083, 7.1667, 47.26, 7.1667},
        {"JULIETT 11 two circles", "TMZ", 706.9, 144, 44.7, 7, 44.76, 7},
        {"KILO 12 last", "W", 3.14, 72, 46.51, 6.5, 46.52, 6.5},
    };
    ASSERT_EQ(file.airspaces.size(), std::size(good));
    for (std::size_t i = 0; i < std::size(good); ++i) {
        const Airspace& each = file.airspaces[i];
        EXPECT_EQ(each.name, good[i].name);
        EXPECT_EQ(each.airspaceClass, good[i].airspaceClass);
        EXPECT_NEAR(each.areaNm2() / good[i].areaNm2, 1, 0.02) << each.name << " " << each.areaNm2();
        EXPECT_NEAR(static_cast<double>(each.points()), static_cast<double>(good[i].points), 1) << each.name;
        EXPECT_TRUE(each.contains(at(good[i].lat, good[i].lon))) << each.name;
        EXPECT_FALSE(each.contains(at(good[i].outLat, good[i].outLon))) << each.name;
    }
    EXPECT_TRUE(file.airspaces[7].contains(at(-17.5, -179.9)));
    EXPECT_NEAR(file.airspaces[7].box().west, 179.5, 1e-9);
    EXPECT_NEAR(file.airspaces[7].box().east, -179.5, 1e-9);
    EXPECT_EQ(file.airspaces[8].frequency, "119.700");
    EXPECT_EQ(file.airspaces[8].type, "TMA");
    std::string problems;
    for (const OpenAirProblem& problem : file.problems)
        problems += std::to_string(problem.line) + ": " + problem.text + "\n";
    EXPECT_EQ(problems,
        "109: Not a position: X=91:00:00 N 008:00:00 E (ERROR no centre)\n"
        "112: Fewer than three points (ERROR two points)\n"
        "119: The floor lies above the ceiling (ERROR limits reversed)\n");
}

TEST(OpenAir, LimitsErrToTheSafeSide) {
    const auto of = [](const char* floor, const char* ceiling) {
        return Airspace{.name = {},
            .airspaceClass = {},
            .type = {},
            .frequency = {},
            .floor = parseLimit(floor),
            .ceiling = parseLimit(ceiling),
            .line = 0,
            .rings = {}};
    };
    EXPECT_TRUE(of("SFC", "2000").reaches(-100, 50));
    EXPECT_FALSE(of("SFC", "2000").reaches(2001, 50));
    EXPECT_TRUE(of("1000 AGL", "2000 AGL").reaches(1500, {})) << "above sea where the ground is not known";
    EXPECT_FALSE(of("1000 AGL", "2000 AGL").reaches(1500, 1000));
    EXPECT_TRUE(of("1000 AGL", "2000 AGL").reaches(2500, 1000));
    EXPECT_TRUE(of("NOTAM", "NOTAM").reaches(0, {}));
    EXPECT_TRUE(of("FL 95", "UNL").reaches(60000, {}));
    EXPECT_FALSE(of("FL 95", "UNL").reaches(9000, {}));
}

TEST(OpenAir, FoldersOfAirspaces) {
    const TempFolder folder;
    folder.write(
        "east.TXT", "AC P\nAN DATE LINE\nAL FL 100\nAH UNL\nDP 17S 179E\nDP 17S 179W\nDP 19S 179W\nDP 19S 179E\n");
    folder.write("west.air", "AC D\nAN LOW\nAL GND\nAH 2000\nV X=18S 179:30W\nDC 20\nAC D\nAN BAD\nDC x\n");
    folder.write("plan.txt", "FPL 0\n");
    AirspaceSet set;
    set.load(std::vector{folder / "none", folder.path()});
    ASSERT_EQ(set.all().size(), 2U);
    EXPECT_EQ(set.revision(), 1U);
    ASSERT_EQ(set.files().size(), 2U);
    EXPECT_EQ(set.files()[1].airspaces, 1U);
    EXPECT_EQ(std::vector(set.problems().begin(), set.problems().end()),
        std::vector<std::string>{"west.air line 9: Not a radius: x (BAD)"});
    const auto names = [&set](const std::vector<std::size_t>& places) {
        std::string all;
        for (const std::size_t i : places) all += set.all()[i].name + ",";
        return all;
    };
    EXPECT_EQ(names(set.at(at(-18, -179.5))), "LOW,DATE LINE,") << "lowest floor first";
    EXPECT_EQ(names(set.at(at(-18, 179.5))), "DATE LINE,");
    EXPECT_EQ(names(set.at(at(-18, 178.5))), "");
    EXPECT_EQ(names(set.touching({-18, 179.5, -17, -179.8})), "DATE LINE,LOW,");
    EXPECT_EQ(names(set.touching({-18, 170, -17, 178.9})), "");
    EXPECT_EQ(names(set.touching({-90, -180, 90, 180})), "DATE LINE,LOW,");
    EXPECT_EQ(limitWords(set.all()[0].floor) + limitWords(set.all()[0].ceiling) + limitWords(set.all()[1].floor) +
                  limitWords(set.all()[1].ceiling) + limitWords(parseLimit("1000 AGL")) +
                  limitWords(parseLimit("NOTAM")),
        "FL100UNLGND2010 AGLNOTAM");
}

TEST(OpenAir, AnyBytesAndLineEnds) {
    const char* const text = "AC D%AN M\xFCnchen%AL GND%AH 5000%V X=48:00N 11:00E%DC 5";
    for (const std::string end : {"\n", "\r\n", "\r"}) {
        std::string bytes = "\xEF\xBB\xBF";
        for (const char c : std::string_view(text)) bytes += c == '%' ? end : std::string(1, c);
        const OpenAirFile file = readOpenAir(bytes);
        ASSERT_EQ(file.airspaces.size(), 1U);
        EXPECT_EQ(file.airspaces[0].name, "München");
        EXPECT_EQ(file.airspaces[0].line, 1);
        EXPECT_TRUE(file.problems.empty());
    }
    const OpenAirFile faults = readOpenAir(
        "DP 1N 1E\nAC D\nAN X\nDC 5\nAC D\nDC 0\nAC R\nAN Y\nV W=2\nDY 47N 8E\nDY 47N 9E\nZZ 1\n"
        "AC R\nAN Z\nDY 47N 8E\nDY 47:10N 9E\n");
    ASSERT_EQ(faults.airspaces.size(), 2U) << "an airway is a band";
    EXPECT_NEAR(faults.airspaces[0].areaNm2(), 82, 1);
    EXPECT_EQ(faults.problems.size(), 4U);
    EXPECT_EQ(faults.problems[0].text, "Outside an airspace: DP");
    EXPECT_EQ(faults.problems[1].line, 4);
}

}}  // namespace korvel
