#include "TempFolder.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/PlacesFixture.h"
#include "nav/plan/PlaceMatches.h"
#include "nav/plan/PlanEdit.h"
#include "nav/plan/RouteCheck.h"
#include "nav/plan/RouteEntry.h"
#include "nav/plan/RouteWords.h"
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
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1 C1"), 2, true)), "A1 C1 B1");
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1 C1"), 0, false)), "B1 A1 C1");
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1"), 0, true)), "A1 B1");
    EXPECT_EQ(textsOf(withRowMoved(route("A1 B1"), 1, false)), "A1 B1");

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
        const RouteCheck check = checkRoute(line, database_, fixes_, degrees(0, 0));
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
    EXPECT_EQ(kinds("V1 D1 GO"), "U!PU! refused");
    EXPECT_EQ(kinds("A1@ B1@x"), "B!B! refused");
    EXPECT_EQ(kinds(""), "");
    const RouteCheck check = checkRoute("A1 V1 D1", database_, fixes_, degrees(0, 0));
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
        const RouteCheck check = checkRoute(line, database_, fixes_, degrees(50, 5));
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
    EXPECT_EQ(keys("b", degrees(0, 0), 9), "f.B f.B1 v.BX f.B1 ");
    EXPECT_EQ(keys("b", degrees(0, 0), 2), "f.B f.B1 ");
    EXPECT_EQ(keys("v.b", degrees(0, 0), 9), "v.BX ");
    EXPECT_EQ(keys("B1", std::nullopt, 9), "f.B1 f.B1 ");
    EXPECT_EQ(keys("", std::nullopt, 9), "");
    EXPECT_EQ(keys("ZZ", std::nullopt, 9), "");
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

}}  // namespace korvel
