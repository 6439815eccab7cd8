#include <algorithm>
#include <cmath>
#include <random>

#include "TempFolder.h"
#include "nav/PlacesFixture.h"
#include "nav/plan/AirwayCrossing.h"
#include "nav/plan/AirwayPlaces.h"
#include "nav/plan/RouteEntry.h"
#include "navdb/TestDatabase.h"

namespace korvel { namespace {

TEST(RouteWords, SplitAtSpacesAndLineFeeds) {
    EXPECT_EQ(SplitWords(" A\r\nB  \tC\t D\rE\n"), (std::vector<std::string>{"A", "B", "C", "DE"}));
    EXPECT_TRUE(SplitWords(" \r\n \t ").empty());
}

TEST(RouteWords, AltitudesAreHundredsOfFeet) {
    constexpr std::tuple<std::string_view, std::int32_t, std::string_view> kCases[] = {{"45", 4500, "@45"},
        {"45.5", 4550, "@45.5"}, {"1.23", 123, "@1.2"}, {"0.29", 28, "@0.3"}, {"-5", -500, "@-5"}, {"0", 0, "@0"}};
    for (const auto& [text, feet, suffix] : kCases) {
        std::string_view rest = text;
        EXPECT_EQ(scanPlannedAltitude(rest), feet) << text;
        EXPECT_EQ(altitudeSuffix(feet), suffix);
    }
    for (std::string_view bad : {"", "x", "nan", "inf", "1001", "-101", "1e300"})
        EXPECT_FALSE(scanPlannedAltitude(bad)) << bad;
}

TEST(AirwayCrossing, FindsWhereSegmentsCross) {
    const GeoPoint west = degrees(0, 179);
    const GeoPoint east = degrees(0, -179);
    const GeoPoint a[] = {degrees(0, 177), west, east};
    const GeoPoint b[] = {degrees(-1, 179.5), degrees(1, -179.5), degrees(5, -170)};
    const AirwayCrossing found = FindAirwayCrossing(a, b);
    EXPECT_EQ(found.startA, 1U);
    EXPECT_EQ(found.startB, 0U);
    EXPECT_NEAR(found.position.lat, 0, 1e-12);
    EXPECT_NEAR(std::abs(found.position.lon), kPi, 1e-12);
    const GeoPoint parallel[] = {degrees(1, 177), degrees(1, -179)};
    EXPECT_FALSE(IsValid(FindAirwayCrossing(a, parallel).position));
    const GeoPoint gap[] = {b[0], GeoPoint{}, b[1]};
    EXPECT_FALSE(IsValid(FindAirwayCrossing(a, gap).position));
    EXPECT_FALSE(IsValid(FindAirwayCrossing({}, b).position));
}

/// V1 runs from west to east along the equator, V2 from north to south across it, meeting it in C;
/// V3 crosses it between C and D without a common fix; V4 does so by way of a fix that is missing.
class RouteEntryTest : public PlacesFixture {
 protected:
    RouteEntryTest() {
        for (int i = 0; i < 5; ++i) place("f." + std::string(1, static_cast<char>('A' + i)), 0, i);
        place("v.N", 2, 2.0);
        place("f.NN", 1, 2.0);
        place("f.SS", -1, 2.0);
        place("v.S", -2, 2.0);
        place("v.P", 2, 2.4);
        place("f.PP", 1, 2.45);
        place("f.QQ", -1, 2.55);
        place("v.Q", -2, 2.6);
        place("v.V1", 50, 50);
        place("a.KX", 3, 3);
    }
    std::string expand(std::string_view route) {
        RouteEntry entry(database_, fixes_, std::nullopt);
        const RouteResult result = entry.ExpandRoute(SplitWords(route), airways_);
        return result.error + (result.error.empty() ? "" : "|") + textsOf(result.entries);
    }

    AirwayTable airways_{{"V1", {{"A", "B"}, {"A", "B", "C", "D", "E"}}}, {"V2", {{"N", "NN", "C", "SS", "S"}}},
        {"V3", {{"P", "PP", "QQ", "Q"}}}, {"V4", {{"A", "GONE", "E"}}}};
};

TEST_F(RouteEntryTest, ExpandsAirwaysInBothDirections) {
    constexpr std::tuple<std::string_view, std::string_view> kCases[] = {{"", ""}, {"KX A", "KX A"},
        {"A @V1 D", "A B C D"}, {"E @V1 B@-1.5 KX", "E D C B@-1.5 KX"}, {"A@4.5 @V1 B", "A@4.5 B"},
        {"f.A @V1 f.C", "f.A B f.C"}, {"A V1 D", "A V1 D"},  // there is a place of that name
        // joined at the common fix
        {"B @V1 @V2 S", "B C SS S"}, {"E @V1 V2 N@20", "E D C NN N@20"}, {"C @V1 V2 N", "C C NN N"},
        // joined where they cross
        {"A @V1 V3 Q", "A B C f.F-1 QQ Q"}, {"E @V1 V3 P", "E D f.F-1 PP P"}, {"P V3 @V1 A", "P PP f.F-1 C B A"},
        {"P V3 @V1 V2 S", "P PP f.F-1 C SS S"}, {"f.F-1 A", "f.F-1 A"},
        // the errors, with the word to be shown
        {"V23 A", "V23 navaid/airway not found or data expired!|V23"},
        {"A V23@20 B", "V23 navaid/airway not found or data expired!|V23@20"},
        {"V2 C V2 S", "No leading fix found for V2 airway!|V2"}, {"A @V1", "No trailing fix found for V1 airway!|@V1"},
        {"A @V4 E", "Fix GONE of V4 airway not found!|@V4"}, {"N @V1 E", "Fix N of V1 airway not found!|@V1"},
        {"A @V1 N", "Fix N of V1 airway not found!|@V1"}, {"S V2 V3 NOWHERE", "Fix V3 of V2 airway not found!|V2"},
        {"P V3 @V1 NOWHERE", "Fix NOWHERE of V1 airway not found!|@V1"},
        {"A @V1 V3 NOWHERE", "Fix V3 of V1 airway not found!|@V1"}};
    for (const auto& [route, expected] : kCases) EXPECT_EQ(expand(route), expected) << route;
    const std::string invalid = "Invalid altitude. Format is feet in hundreds (e.g. 1.2 = 120 ft).|";
    EXPECT_EQ(expand("A@x B"), invalid + "A@x");
    EXPECT_EQ(expand("A@20x"), invalid + "A@20x");
    EXPECT_EQ(expand("A @V1 D@"), invalid + "@V1");
    // which of the line's words it is, also behind airways that meet
    const auto errorWord = [this](std::string_view route) {
        return RouteEntry(database_, fixes_, std::nullopt).ExpandRoute(SplitWords(route), airways_).errorWord;
    };
    EXPECT_EQ(errorWord("A B GONE"), 2U);
    EXPECT_EQ(errorWord("P V3 @V1 E GONE"), 4U);
    EXPECT_EQ(errorWord("P V3 @V1 NOWHERE"), 2U);
    EXPECT_NEAR(fixes_.find("f.F-1")->position.lon, 2.5 * kDegToRad, 1e-9);
    EXPECT_EQ(fixes_.find("f.F-2"), nullptr);
}

TEST_F(RouteEntryTest, ACrossingBelongsToTheRouteNotToTheAirway) {
    airways_["V1"].push_back({"E", "EE"});
    place("f.EE", 0, 5);
    constexpr std::tuple<std::string_view, std::string_view> kCases[] = {
        // to a place and back over the crossing, on to another piece of the airway
        {"P V3 @V1 E @V1 B", "P PP f.F-1 D E D C B"}, {"P V3 @V1 A @V1 @V2 S", "P PP f.F-1 C B A B C SS S"},
        {"P V3 @V1 E @V1 EE", "P PP f.F-1 D E EE"}, {"P V3 @V1 E @V1 V3 Q", "P PP f.F-1 D E D f.F-1 QQ Q"},
        // straight across
        {"P V3 @V1 V3 Q", "P PP f.F-1 f.F-1 QQ Q"}};
    for (const auto& [route, expected] : kCases) EXPECT_EQ(expand(route), expected) << route;
    EXPECT_EQ(fixes_.find("f.F-2"), nullptr);
}

/// BT stands twice: the airway leads to the VOR, the fix lies nearer to the place before it.
TEST_F(RouteEntryTest, NamesakesOfAnAirwaysPlacesAreNotMeant) {
    airways_["R1"] = {{"FF", "GG", "BT", "HH"}};
    place("f.FF", 10, 10);
    place("f.GG", 10, 11);
    place("f.BT", 11.5, 11);
    place("v.BT", 10, 13);
    place("f.HH", 10, 14);
    const std::tuple<std::string_view, std::string_view> cases[] = {{"GG R1 BT", "v.BT"}, {"GG R1 BT@20", "v.BT"},
        {"BT R1 GG", "v.BT"}, {"GG R1 f.BT", "f.BT"}, {"GG BT", "f.BT"}, {"FF R1 HH", "v.BT"}, {"f.BT R1 HH", "f.BT"}};
    for (const auto& [route, expected] : cases) {
        RouteEntry entry(database_, fixes_, degrees(11.4, 11));
        const RouteResult result = entry.ExpandRoute(SplitWords(route), airways_);
        EXPECT_EQ(result.error, "") << route;
        const bool found = std::ranges::any_of(
            result.entries, [key = expected](const PlanWaypoint& place) { return place.record->key == key; });
        EXPECT_TRUE(found) << route;
    }
}

/// Looking only as far as it can matter finds the same as looking at the whole piece.
TEST_F(RouteEntryTest, AStretchOfAnAirwayLeadsOverThePlacesOfTheWhole) {
    std::mt19937 random(7);
    const auto upTo = [&random](unsigned most) { return std::uniform_int_distribution<unsigned>(0, most)(random); };
    std::vector<std::string> piece;
    for (int i = 0; i < 12; ++i) {
        piece.push_back(numbered("W", i));
        for (const std::string_view kind : {"v.", "f.", "a."})
            if (upTo(2) > 0) place(std::string(kind) + piece.back(), upTo(20), upTo(20) + 0.1 * i);
    }
    const std::vector<std::shared_ptr<const DatabaseRecord>> unknown(piece.size());
    const auto along = [&](std::size_t first, std::size_t last) {
        return placesAlong(piece, unknown, {.first = first, .last = last}, database_, fixes_);
    };
    const auto whole = along(0, piece.size() - 1);
    for (std::size_t first = 0; first < piece.size(); ++first) {
        for (std::size_t last = first; last < piece.size(); ++last) {
            const auto stretch = along(first, last);
            for (std::size_t i = 0; i < piece.size(); ++i) {
                const std::string expected = i >= first && i <= last && whole[i] ? whole[i]->key : "";
                EXPECT_EQ(stretch[i] ? stretch[i]->key : "", expected) << first << ' ' << last << ' ' << i;
            }
        }
    }
}

TEST_F(RouteEntryTest, LooksEveryWordUpNearTheOneBefore) {
    place("v.R", 0, 1);
    place("a.R", 0, 30);
    place("f.FAR", 0, 31);
    const std::tuple<std::optional<GeoPoint>, std::string_view, std::string_view> cases[] = {{std::nullopt, "R", "v.R"},
        {degrees(0, 29), "R", "a.R"}, {degrees(0, 2), "FAR R", "a.R"}, {degrees(0, 29), "A R", "v.R"},
        {GeoPoint{}, "R", "v.R"}};
    for (const auto& [present, route, expected] : cases) {
        const RouteResult result = RouteEntry(database_, fixes_, present).EnterRoute(route, true);
        ASSERT_EQ(result.error, "");
        EXPECT_EQ(result.entries.back().record->key, expected) << route;
    }
}

TEST_F(RouteEntryTest, EntersRoutesFromADatabaseFile) {
    TestDatabase file;
    file.addAirway("V1", "A B\nC D E");
    file.addAirway("V2", "N NN C");
    file.addAirway("V2", "C SS S");
    const TempFolder folder;
    ASSERT_EQ(database_.openFile(file.write(folder.path(), "airways.ng2")), "");
    RouteEntry entry(database_, fixes_, std::nullopt);
    EXPECT_EQ(textsOf(entry.EnterRoute("A A B@1 @V1 V2 S@10 S@10", true).entries), "A B@1 C SS S@10");
    EXPECT_EQ(textsOf(entry.EnterRoute("C @V1 V2 S", true).entries), "C SS S");
    EXPECT_EQ(entry.EnterRoute("A V2 C", false).error, "V2 navaid/airway not found or data expired!");
}

TEST_F(RouteEntryTest, ManyWaysToJoinDoNotTakeForEver) {
    // Twelve airways that share all their fixes and never reach the last word.
    std::string route = "A";
    for (int i = 0; i < 12; ++i) {
        const std::string name = "X" + std::to_string(i);
        airways_[name] = {{"A", "B", "C", "D", "E"}, {"E", "C", "A", "B", "D"}};
        route += " " + name;
    }
    EXPECT_EQ(expand(route + " N"), "Fix N of X11 airway not found!|X11");
}

TEST(GeneratedFixes, AreOnePerPosition) {
    GeneratedFixes fixes;
    const auto named = fixes.FindOrCreateFix(degrees(1, 1), "F-1");
    EXPECT_EQ(named->key, "f.F-1");
    EXPECT_EQ(fixes.FindOrCreateFix(degrees(1.00001, 1)), named);
    EXPECT_EQ(fixes.FindOrCreateFix(degrees(2, 1))->key, "f.F-2") << "F-1 is taken";
    const auto moved = fixes.FindOrCreateFix(degrees(3, 1), "F-1");
    EXPECT_EQ(fixes.find("f.F-1"), moved);
    EXPECT_EQ(named->position.lat, degrees(1, 1).lat);
}

}}  // namespace korvel
