#include "TempFolder.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/PlacesFixture.h"
#include "nav/plan/PlaceMatches.h"
#include "nav/plan/PlanEdit.h"
#include "nav/plan/RouteCheck.h"
#include "nav/plan/RouteEntry.h"
#include "nav/plan/RouteWords.h"
#include "nav/plan/TypedRoutes.h"
#include "navdb/TestDatabase.h"

namespace korvel { namespace {

class PlanEditTest : public PlacesFixture {
 protected:
    PlanEditTest() {
        // Airway V1: A1 B1 C1 D1 along the equator; B1 exists twice.
        TestDatabase file;
        for (int i = 0; i < 4; ++i) file.addFix(std::string(1, static_cast<char>('A' + i)) + "1", 0, i);
        file.addFix("B1", 50, 100);
        file.addAirway("V1", "A1 B1 C1 D1");
        EXPECT_EQ(database_.openFile(file.write(folder_.path(), "w.ng2")), "");
        place("f.LONE", 10, 10);
    }

    PlanEntries route(std::string_view line) {
        return RouteEntry(database_, fixes_, degrees(0, 0)).EnterRoute(line, true).entries;
    }
    PlanEditResult insert(std::string_view line, std::size_t row, std::string_view words) {
        return insertWords(route(line), row, words, database_, fixes_, std::nullopt);
    }

    TempFolder folder_;
};

TEST_F(PlanEditTest, TheRoomForAPlaceIsWhereTheWayBecomesLeastLonger) {
    const struct {
        const char* line;
        GeoPoint place;
        std::size_t first;
        std::optional<GeoPoint> from;
        std::size_t row;
        double extraNm;
    } cases[] = {
        {"A1 B1 D1", degrees(0, 2.5), 0, {}, 2, 0},
        {"A1 B1 D1", degrees(0, 3.5), 0, {}, 3, 30},               // behind the last
        {"A1 B1 D1", degrees(0, -0.5), 0, {}, 0, 30},              // before the first
        {"A1 B1 D1", degrees(0, 0.5), 1, degrees(0, 0.7), 1, 24},  // of what is flown nothing counts
        {"A1 B1 D1", degrees(0, 0.5), 1, {}, 1, 0},
        {"A1 B1 D1", degrees(0, 0.9), 0, degrees(0, 0.5), 1, 0},  // on from here to the first and back
        {"A1 B1 D1", degrees(0, 0.2), 3, {}, 3, 168},             // nothing is left to fly
        {"", degrees(0, 1), 0, {}, 0, 0},
    };
    for (const auto& each : cases) {
        const PlanRoom room = roomFor(each.place, route(each.line), each.first, each.from);
        EXPECT_EQ(room.row, each.row) << &each - cases;
        EXPECT_NEAR(room.extraNm, each.extraNm, 0.1) << &each - cases;
    }
}

TEST_F(PlanEditTest, Rows) {
    EXPECT_EQ(textsOf(insert("A1 LONE", 1, "B1@45").entries), "A1 B1@45 LONE");
    EXPECT_EQ(textsOf(insert("A1 LONE", 1, "V1 D1").entries), "A1 B1 C1 D1 LONE");
    EXPECT_EQ(textsOf(insert("LONE", 0, "A1").entries), "A1 LONE");
    EXPECT_EQ(textsOf(insert("LONE", 9, "A1 A1").entries), "LONE A1");
    EXPECT_EQ(textsOf(insert("LONE", 1, "LONE").entries), "LONE");
    EXPECT_EQ(textsOf(insert("LONE", 1, "").entries), "LONE");
    // The nearer one of two.
    const PlanEditResult near = insert("C1", 1, "B1");
    EXPECT_NEAR(near.entries[1].position().lon * kRadToDeg, 1, 1e-6);
    const PlanEditResult refused = insert("A1 LONE", 1, "B1 GONE");
    EXPECT_EQ(refused.error, "GONE navaid/airway not found or data expired!");
    EXPECT_EQ(textsOf(refused.entries), "A1 LONE");

    EXPECT_EQ(textsOf(withRecord(route("A1 C1"), 1, places_.find("f.LONE")->Clone())), "A1 f.LONE C1");
    EXPECT_EQ(textsOf(withoutRow(route("A1 B1 A1 C1"), 1)), "A1 C1");
    EXPECT_EQ(textsOf(withoutRow(route("A1"), 1)), "A1");
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1 C1"), 2, 1)), "A1 C1 B1");
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1 C1"), 0, 1)), "B1 A1 C1");
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1 C1 D1"), 0, 2)), "B1 C1 A1 D1");
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1 C1 D1"), 3, 0)), "D1 A1 B1 C1");
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1 A1 C1"), 1, 3)), "A1 C1 B1") << "neighbours alike become one";
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1"), 0, std::size_t{0} - 1)), "A1 B1");
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1"), 1, 2)), "A1 B1");
    EXPECT_EQ(textsOf(withPlace(route("A1 B1@45 C1"), 1, places_.find("f.LONE")->Clone())), "A1 f.LONE@45 C1");
    EXPECT_EQ(textsOf(withPlace(route("A1 B1"), 2, places_.find("f.LONE")->Clone())), "A1 B1");

    EXPECT_EQ(textsOf(withAltitude(route("A1 B1"), 1, 4550).entries), "A1 B1@45.5");
    EXPECT_EQ(textsOf(withAltitude(route("A1@9"), 0, kNoAltitudeFt).entries), "A1");
    EXPECT_EQ(withAltitude(route("A1"), 0, 100001).error, text(kFlightTexts.invalidAltitude));
}

TEST_F(PlanEditTest, TheLineOfAPlanEntersItAgain) {
    place("v.A1", 0, 0.1);  // nearer to where the flight begins than the fix
    place("a.LONE", 10, 9.9);
    PlanEntries plan = route("f.A1@9 B1 C1");
    plan = withRecord(plan, 3, places_.find("f.LONE")->Clone());
    const std::string line = routeLine(plan, database_, degrees(0, 0.1));
    EXPECT_EQ(line, "f.A1@9 B1 C1 f.LONE ") << "a key where the identifier alone finds another place";
    const PlanEntries again =
        RouteEntry(database_, fixes_, degrees(0, 0.1)).EnterRoute(typedIdents(line), true).entries;
    ASSERT_EQ(again.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(again[i].record->key, plan[i].record->key) << i;

    EXPECT_EQ(typedIdents(" kbfi f.lone@4.5 @v1 @V.A v A.B.C"), " KBFI f.LONE@4.5 @V1 @v.A V a.B.C");
}

TEST_F(PlanEditTest, TypedLineIsChecked) {
    using Kind = CheckedWord::Kind;
    const auto kinds = [this](std::string_view line) {
        const RouteCheck check = checkRoute(line, database_, fixes_, {degrees(0, 0)});
        std::string found;
        for (const CheckedWord& word : check.words) {
            found += "PAUB"[static_cast<std::size_t>(word.kind)];
            found += word.message.empty() ? "" : "!";
        }
        return found + (check.error.empty() ? "" : " refused");
    };
    static_assert(static_cast<int>(Kind::BadAltitude) == 3);
    EXPECT_EQ(kinds("A1 V1 D1@55 LONE"), "PAPP");
    EXPECT_EQ(kinds("A1 V1"), "PA! refused");
    EXPECT_EQ(kinds("LONE V1 D1"), "PA!P refused");
    EXPECT_EQ(kinds("A1 V1 D1 LONE V1 D1"), "PAPPA!P refused") << "the word that is wrong, not its namesake";
    EXPECT_EQ(kinds("A1 A1 GONE GONE"), "PPU!U! refused");
    EXPECT_EQ(kinds("V1 D1 GO"), "U!PU! refused");
    EXPECT_EQ(kinds("A1@ B1@x"), "B!B! refused");
    EXPECT_EQ(kinds(""), "");
    const RouteCheck check = checkRoute("A1 V1 D1", database_, fixes_, {degrees(0, 0)});
    EXPECT_EQ(check.count, 4U);
    EXPECT_NEAR(check.totalNm, 180, 0.01);
}

TEST_F(PlanEditTest, LongLegsAndSharpTurnsAreHinted) {
    place("f.P0", 50, 0);
    place("f.P1", 50, 10);
    place("f.E9", 50, 23.1);  // 504 NM from P1
    place("f.N", 58.2, 10);   // 492 NM
    place("f.W5", 50.05, 5);
    const auto hints = [this](std::string_view line) {
        const RouteCheck check = checkRoute(line, database_, fixes_, {degrees(50, 5)});
        EXPECT_EQ(check.error, "");
        return check.hints;
    };
    using Hints = std::vector<std::string>;
    EXPECT_EQ(hints("P0 P1 N"), Hints());
    EXPECT_EQ(hints("P0 P1 E9"), Hints{"Long leg from P1 to E9: 505 nm"});
    EXPECT_EQ(hints("P0 P1 f.P1 W5 P0"), Hints{"Sharp turn of 179\u00b0 at P1"}) << "standing still is no turn";
    EXPECT_EQ(hints("N P1 P0 P1"), Hints{"Sharp turn of 180\u00b0 at P0"}) << "90 degrees are none";
    EXPECT_EQ(hints("P0"), Hints());
}

TEST_F(PlanEditTest, WordsAreCompleted) {
    const auto keys = [this](std::string_view typed, std::optional<GeoPoint> near, std::size_t limit) {
        std::string found;
        for (const PlaceMatch& match : placeMatches(database_, typed, near, limit)) found += match.key + ' ';
        return found;
    };
    place("f.B", 60, 60);
    place("v.BX", 0, 1.1);
    EXPECT_EQ(keys("b", degrees(0, 0), 9), "f.B1 v.BX f.B f.B1 ");
    EXPECT_EQ(keys("b", degrees(0, 0), 2), "f.B1 f.B ");
    EXPECT_EQ(keys("v.b", degrees(0, 0), 9), "v.BX ");
    EXPECT_EQ(keys("B1", std::nullopt, 9), "f.B1 f.B1 ");
    EXPECT_EQ(keys("", std::nullopt, 9), "");
    EXPECT_EQ(keys("ZZ", std::nullopt, 9), "");
    // Spelled just so, and near enough to be meant.
    place("v.B", 8, 0);
    EXPECT_EQ(keys("b", degrees(0, 0), 3), "v.B f.B1 v.BX ");
    EXPECT_EQ(keys("b", degrees(0, 0), 9), "v.B f.B1 v.BX f.B f.B1 ") << "only those within 500 NM go first";
    const auto certain = placeMatches(database_, "b", degrees(0, 0), 9);
    EXPECT_EQ(meantPlace(certain)->key, "v.B");
    EXPECT_EQ(meantPlace(placeMatches(database_, "bx", degrees(0, 100), 9))->distanceNm > kSurelyMeantNm, true);
    EXPECT_EQ(meantPlace(placeMatches(database_, "lo", degrees(0, 0), 9)), nullptr);
    // Names count from three letters on.
    EXPECT_EQ(keys("nam", degrees(10, 9.9), 1), "f.LONE ");
    EXPECT_EQ(keys("lone", degrees(10, 9), 9), "f.LONE ") << "found twice, shown once";
    EXPECT_EQ(keys("na", degrees(10, 9), 9), "");
    const auto first = placeMatches(database_, "lo", degrees(10, 9), 1);
    ASSERT_EQ(first.size(), 1U);
    EXPECT_EQ(first[0].name, "LONE name");
    // With a prefix: behind what was typed, and nothing twice.
    place("a.KSEA", 1, 1);
    place("v.SEA", 1, 1);
    const auto sea = placeMatches(database_, "SEA", std::nullopt, 9);
    const auto both = withPrefixed(sea, placeMatches(database_, "a.KSEA", std::nullopt, 9));
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[0].key + both[1].key, "v.SEAa.KSEA");
    EXPECT_EQ(withPrefixed(both, both), both);
    EXPECT_NEAR(first[0].distanceNm.value_or(0), 59.1, 0.1);
}

TEST_F(PlanEditTest, AFirstWordOfManyPlacesIsAskedAbout) {
    place("v.C1", 0, 2.001);
    place("a.C1", -40, -60);
    const auto places = [this](std::string_view line, std::optional<GeoPoint> present) {
        std::string found;
        for (const PlaceMatch& each : firstPlaces(line, database_, present)) found += each.key + ' ';
        return found;
    };
    EXPECT_EQ(places("B1 A1", std::nullopt), "f.B1 f.B1 ");
    EXPECT_NEAR(firstPlaces("B1 A1", database_, std::nullopt).front().distanceNm.value_or(0), 60, 0.1);
    EXPECT_NEAR(firstPlaces("B1@20 V1 LONE", database_, std::nullopt).front().position.lon * kRadToDeg, 1, 1e-6);
    EXPECT_EQ(places("B1 A1", degrees(0, 0)), "") << "one is near";
    EXPECT_EQ(places("B1 A1", degrees(-60, 0)), "f.B1 f.B1 ");
    EXPECT_EQ(places("C1", std::nullopt), "f.C1 a.C1 ") << "two at one place are one";
    EXPECT_EQ(places("a.C1", std::nullopt), "");
    EXPECT_EQ(places("A1 B1", std::nullopt), "");
    EXPECT_EQ(places("", std::nullopt), "");
}

TEST_F(PlanEditTest, APrefixStandsInWhereAWordIsNothingElse) {
    place("a.KS50", 0, 4);
    place("a.KB1", 0, 5);
    place("a.KV1", 0, 6);
    const auto enter = [this](std::string_view line) {
        const RouteResult result = RouteEntry(database_, fixes_, degrees(0, 0), "K").EnterRoute(line, true);
        return result.error + textsOf(result.entries);
    };
    EXPECT_EQ(enter("A1 V1 C1 S50@20 B1"), "A1 B1 C1 a.KS50@20 B1");
    EXPECT_EQ(enter("A1 f.S50"), "f.S50 navaid/airway not found or data expired!f.S50");
    EXPECT_EQ(enter("A1 @S50 B1"), "S50 navaid/airway not found or data expired!@S50");
    EXPECT_EQ(checkRoute("A1 V1 C1 S50", database_, fixes_, {degrees(0, 0), "K"}).words.back().message, "");
    EXPECT_EQ(textsOf(insertWords(route("A1"), 1, "S50", database_, fixes_, std::nullopt, "K").entries), "A1 a.KS50");
    EXPECT_EQ(checkRoute("A1 S50", database_, fixes_, {degrees(0, 0)}).errorWord, 1U);
}

TEST_F(PlanEditTest, AnEnteredLineComesBackWithItsEntries) {
    TypedRoutes typed;
    typed.remember("A1 V1 D1", route("A1 V1 D1"));
    typed.remember("A1 V1 C1 D1", route("A1 V1 D1"));
    typed.remember("LONE", route("LONE"));
    EXPECT_EQ(typed.lineOf(route("A1 B1 C1 D1")), "A1 V1 C1 D1");
    EXPECT_EQ(typed.lineOf(route("A1 B1@20 C1 D1")), "");
    EXPECT_EQ(typed.lineOf(route("A1 B1 C1")), "");
    EXPECT_EQ(typed.lineOf({}), "");
}

}}  // namespace korvel
