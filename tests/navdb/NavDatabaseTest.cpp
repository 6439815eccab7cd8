#include <gtest/gtest.h>

#include "TempFolder.h"
#include "geo/Geodesy.h"
#include "navdb/NavDatabase.h"
#include "navdb/TestDatabase.h"
#include "navdb/file/DatabaseFile.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/records/NavaidRecord.h"
#include "navdb/search/NameSearch.h"
#include "navdb/user/UserRecordStore.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

constexpr double kNm = 1.0 / 60.0;  // of latitude, in degrees

GeoPoint at(double lat, double lon) { return {.lat = lat * kDegToRad, .lon = lon * kDegToRad}; }

class NavDatabaseTest : public ::testing::Test {
 protected:
    void open(const TestDatabase& content) {
        const std::string name = std::to_string(database_.files().size()) + ".ng2";
        ASSERT_EQ(database_.openFile(content.write(folder_.path(), name)), "");
    }
    /// "KEY FILE" of what is found, "-" for nothing.
    std::string find(std::string_view key, std::optional<GeoPoint> near = std::nullopt) {
        const DatabaseRecord* const record = database_.Find(key, near);
        return record == nullptr ? "-" : record->key + " " + std::to_string(record->origin.match.file);
    }

    TempFolder folder_;
    VirtualClock clock_{{.year = 2024}};
    NavDatabase database_{clock_};
};

TEST_F(NavDatabaseTest, DetailsComeFromTheVeryFileOfTheRecord) {
    TestDatabase content;
    content.addAirport("SEA", 47.449, -122.309, "Seattle");
    content.addRunwayEnd("SEA", 1, "16L", 11901);
    open(content);
    auto record = database_.Find("a.SEA")->Clone();
    auto& airport = dynamic_cast<AirportRecord&>(*record);
    database_.clear();
    open(content);
    database_.loadDetails(airport);
    EXPECT_TRUE(airport.runways.empty()) << "opened anew, it may hold anything";
    record = database_.Find("a.SEA")->Clone();
    database_.loadDetails(dynamic_cast<AirportRecord&>(*record));
    EXPECT_EQ(dynamic_cast<AirportRecord&>(*record).runways.size(), 1U);
}

TEST_F(NavDatabaseTest, BuildsRecordsWithAllTheirFields) {
    TestDatabase content;
    content.addAirport("SEA", 47.449, -122.309, "Seattle Tacoma International");
    content.addNavaid("SEA", 47.435, -122.31, 0x62, 116.8);
    content.addNavaid("SEA", 47.5, -122.0, 0x13, 224.5);
    content.addFix("SEA", 47.0, -122.0, 0x85);
    content.addRunwayEnd("SEA", 1, "16L", 11901);
    content.addRunwayEnd("SEA", 1, "34R", 11901);
    content.addRunwayEnd("SEA", 2, "H1", 60);
    content.addRunwayEnd("SEAX", 1, "01", 1);
    content.addComm("SEA", "TWR", 119.9);
    content.addComm("SEA", "GND", 121.7);
    open(content);

    auto record = database_.Find("a.SEA")->Clone();
    auto& airport = dynamic_cast<AirportRecord&>(*record);
    EXPECT_LT(DistanceNm(airport.position, at(47.449, -122.309)), 1e-6);
    EXPECT_EQ(std::tuple(airport.GetName(), airport.info, airport.GetInfoText(), *airport.origin.fileName),
        std::tuple("Seattle Tacoma Inter", "Info", "Tower, hard surface", "0.ng2"));
    EXPECT_EQ(std::tuple(airport.magVariationDeg, airport.elevationFt, airport.region, airport.expired),
        std::tuple(-13.5F, 431, 'K', false));
    EXPECT_EQ(database_.lastMatch(), airport.origin.match);
    database_.loadDetails(airport);
    ASSERT_EQ(airport.runways.size(), 2U);
    EXPECT_EQ(airport.runways[0].lengthFt, 11901);
    const RunwayEnd& end = airport.runways[0].ends.at(1);
    EXPECT_EQ(
        std::tuple(end.id, end.magHeadingDeg, end.pattern, end.elevationFt), std::tuple("34R", 90, 'R', std::nullopt));
    EXPECT_FALSE(IsValid(end.position));
    EXPECT_EQ(airport.runways[1].ends.size(), 1U);
    ASSERT_EQ(airport.comms.size(), 2U);
    EXPECT_EQ(airport.comms[1].type, "GND");
    EXPECT_DOUBLE_EQ(airport.comms[1].freqMhz, 121.7);

    const auto* vor = dynamic_cast<const VorRecord*>(database_.Find("v.SEA"));
    ASSERT_NE(vor, nullptr);
    EXPECT_EQ(
        std::tuple(vor->usage, vor->GetInfoText(), vor->GetName()), std::tuple(kUsageBoth, "116.8", "SEA navaid"));
    const auto* ndb = dynamic_cast<const NdbRecord*>(database_.Find("n.SEA"));
    ASSERT_NE(ndb, nullptr);
    EXPECT_EQ(ndb->GetInfoText(), "224.5");
    EXPECT_EQ(database_.Find("f.SEA")->GetName(), "SEA");
    EXPECT_NEAR(database_.variationAt(at(47.5, -122.0)), 15.0, 0.5) << "the model's, whatever airports say";
    EXPECT_EQ(database_.variationAt({}), kNoAngle);
}

TEST_F(NavDatabaseTest, FindsAirportsWithAndWithoutTheRegionLetter) {
    TestDatabase first;
    first.addAirport("SEA", 0, 0);
    first.addAirport("KBFI", 0, 0);
    first.addAirport("KKAL", 0, 0);
    first.addAirport("W01", 0, 0, "", "_AP2");
    first.addAirport("AL", 0, 0);
    open(first);
    TestDatabase second;
    second.region = 'L';
    second.addAirport("LSEA", 0, 0);
    second.addAirport("SZH", 0, 0);
    open(second);
    const std::vector<std::pair<std::string, std::string>> cases{{"a.SEA", "a.SEA 0"}, {"a.KSEA", "a.SEA 0"},
        {"a.LSEA", "a.LSEA 1"}, {"a.BFI", "a.KBFI 0"}, {"a.KAL", "a.KKAL 0"}, {"a.KW01", "a.W01 0"},
        {"a.LSZH", "a.SZH 1"}, {"KSEA", "a.SEA 0"}, {"a.sea", "-"}, {"a.SE", "-"}, {"a.SEAX", "-"}, {"a.", "-"},
        {"v.SEA", "-"}, {"", "-"}};
    for (const auto& [key, expected] : cases) EXPECT_EQ(find(key), expected) << key;
}

TEST_F(NavDatabaseTest, AddsNoLetterWhereAFileHasNone) {
    TestDatabase world;
    world.region = 0;
    world.addAirport("SEA", 0, 0);
    world.addAirport("", 0, 0);
    open(world);
    EXPECT_EQ(find("a.KSEA"), "-");
    EXPECT_EQ(find("a.SEA"), "a.SEA 0");
}

TEST_F(NavDatabaseTest, ChoosesAmongEquallyNamedPlaces) {
    const double navaidWins = 20 * kNm;
    TestDatabase content;
    content.addNavaid("TIE", navaidWins, 0, 0x61, 110.0);
    content.addAirport("TIE", -10 * kNm, 0);
    content.addNavaid("FAR", 50 * kNm, 0, 0x63, 110.0);
    content.addAirport("FAR", -10 * kNm, 0);
    content.addNavaid("SAME", 1, 1, 0x61, 110.0);
    content.addFix("SAME", 1, 1);
    content.addAirport("ALL", 3, 3);
    content.addFix("ALL", 2, 2);
    content.addNavaid("ALL", 60, 60, 0x61, 110.0);
    content.addNavaid("ALL", 0, 1, 0x63, 110.0);
    content.addNavaid("ALL", 0, -0.5, 0x61, 110.0);
    open(content);
    const GeoPoint here = at(0, 0);
    const std::tuple<const char*, std::optional<GeoPoint>, const char*> cases[] = {{"TIE", here, "v.TIE 0"},
        {"FAR", here, "a.FAR 0"}, {"SAME", here, "f.SAME 0"}, {"SAME", {}, "v.SAME 0"}, {"ALL", {}, "v.ALL 0"},
        {"ALL", GeoPoint{}, "v.ALL 0"}, {"ALL", at(0, 1), "n.ALL 0"}, {"ALL", at(2, 2), "f.ALL 0"},
        {"v.ALL", here, "v.ALL 0"}};
    for (const auto& [key, near, found] : cases) EXPECT_EQ(find(key, near), found);
    EXPECT_NEAR(database_.Find("v.ALL", here)->position.lon * kRadToDeg, -0.5, 1e-9);
    EXPECT_NEAR(database_.Find("n.ALL", at(50, 50))->position.lon * kRadToDeg, 1.0, 1e-9);
}

TEST_F(NavDatabaseTest, NeverReturnsAnExcludedRow) {
    TestDatabase content;
    content.addAirport("ONE", 1, 1);
    content.addAirport("TWO", 1, 1, "first");
    content.addAirport("TWO", 2, 2, "second");
    open(content);
    ASSERT_EQ(find("a.ONE"), "a.ONE 0");
    database_.exclude(*database_.lastMatch());
    EXPECT_EQ(find("a.ONE"), "-");
    EXPECT_EQ(find("ONE", at(1, 1)), "-");
    ASSERT_EQ(database_.Find("a.TWO")->GetName(), "first");
    database_.exclude(*database_.lastMatch());
    database_.exclude(*database_.lastMatch());
    EXPECT_EQ(database_.Find("a.TWO", at(1, 1))->GetName(), "second");
    EXPECT_EQ(database_.exclusions().size(), 2U);
}

TEST_F(NavDatabaseTest, AsksUserRecordsLikeALastFileWithoutARegion) {
    UserRecordStore records;
    const auto add = [&](std::unique_ptr<DatabaseRecord> record, std::string_view ident, GeoPoint position) {
        record->ident.assign(ident);
        record->key = makeRecordKey(record->GetKind(), ident);
        record->position = position;
        records.add(std::move(record));
    };
    add(std::make_unique<AirportRecord>(), "STRIP", at(5, 5));
    add(std::make_unique<VorRecord>(), "ABC", at(5, 5));
    add(std::make_unique<NdbRecord>(), "ABC", at(6, 6));
    database_.setUserRecords(&records);
    EXPECT_EQ(find("a.STRIP"), "a.STRIP -1");
    EXPECT_EQ(find("ABC"), "v.ABC -1");
    EXPECT_EQ(find("n.ABC"), "n.ABC -1");

    TestDatabase content;
    content.addNavaid("ABC", 0, 0, 0x60, 110.0);
    content.addAirport("KSTRIP", 0, 0);
    open(content);
    EXPECT_EQ(find("ABC"), "v.ABC 0");
    EXPECT_EQ(find("ABC", at(5.9, 5.9)), "n.ABC -1");
    EXPECT_EQ(find("v.ABC", at(5, 5)), "v.ABC -1");
    EXPECT_EQ(database_.lastMatch(), std::nullopt);
    EXPECT_EQ(find("a.STRIP"), "a.STRIP -1");
    EXPECT_EQ(find("a.KSTRIP"), "a.KSTRIP 0");
}

TEST_F(NavDatabaseTest, ListsAirwayPiecesOfCurrentFilesInOrder) {
    TestDatabase first;
    first.addAirway("V23", "SFO OAK");
    first.addAirway("V2", "XXX");
    first.addAirway("V23", "OAK SAC");
    TestDatabase expired = first;
    expired.expiry = 20231231;
    expired.addAirway("V23", "OUT OFDAT");
    TestDatabase last;
    last.expiry = 20200101;
    last.region = 'E';
    last.addAirway("V23", "LAX SAN");
    last.addFix("OLD", 0, 0);
    open(first);
    open(expired);
    open(last);
    std::vector<std::string> routes{"stale"};
    database_.GetAirwayRoutes("V23", routes);
    EXPECT_EQ(routes, (std::vector<std::string>{"SFO OAK", "OAK SAC", "LAX SAN"}));
    database_.GetAirwayRoutes("V", routes);
    EXPECT_TRUE(routes.empty());
    EXPECT_FALSE(database_.Find("f.OLD")->expired);
    TestDatabase undated;
    undated.expiry = 0;
    undated.addFix("NEWER", 0, 0);
    open(undated);
    EXPECT_TRUE(database_.Find("f.NEWER")->expired);
}

TEST_F(NavDatabaseTest, ShowsAPlaceOfTwoFilesOnceAsTheLaterHasIt) {
    TestDatabase older;
    older.expiry = 20230101;
    older.region = 'w';
    older.addNavaid("ABC", 10, 10, 0x20, 110.0);
    older.addAirport("EDDX", 10, 20, "older");
    older.addFix("MOVED", 30, 30);
    older.addFix("GONE", 40, 40);
    TestDatabase added;
    added.expiry = 20250101;
    added.region = 'w';
    added.addNavaid("ABC", 10 + 0.9 * kNm, 10, 0x20, 112.0);
    added.addAirport("EDDX", 10, 20, "later");
    added.addFix("MOVED", 30 + 1.1 * kNm, 30);
    for (const bool laterFirst : {false, true}) {
        database_.clear();
        open(laterFirst ? added : older);
        open(laterFirst ? older : added);
        const std::string laterFile = laterFirst ? " 0" : " 1";
        const std::string olderFile = laterFirst ? " 1" : " 0";
        EXPECT_EQ(find("v.ABC"), "v.ABC" + laterFile);
        EXPECT_EQ(find("ABC", at(10, 10)), "v.ABC" + laterFile) << "though the older one is nearer";
        EXPECT_EQ(database_.Find("EDDX")->GetName(), "later");
        EXPECT_FALSE(database_.Find("EDDX")->pastDate);
        EXPECT_EQ(find("GONE"), "f.GONE" + olderFile) << "what one file alone holds is added";
        EXPECT_TRUE(database_.Find("GONE")->pastDate);
        EXPECT_FALSE(database_.Find("GONE")->expired) << "its region's data go on being used";
        EXPECT_EQ(find("MOVED", at(29, 30)), "f.MOVED" + olderFile) << "more than a mile away";
        std::vector<Place> places;
        EXPECT_TRUE(database_.placesBeginning("", kAllKinds, 99, places));
        EXPECT_EQ(places.size(), 5U);
        database_.placesNamed("ABC", kAllKinds, 99, places);
        EXPECT_EQ(places.size(), 1U);
        EXPECT_EQ(database_.nearest(at(10, 10), kAllKinds, 9, 99).size(), 1U);
        // A row that the user's own replaces hides nothing.
        ASSERT_NE(database_.FindInIndex("EDDX", "AptKey", "_APT", std::nullopt, 0), nullptr);
        database_.exclude(*database_.lastMatch());
        ASSERT_NE(database_.FindInIndex("EDDX", "AptKey", "_APT", std::nullopt, 0), nullptr);
        EXPECT_EQ(database_.lastMatch()->file, laterFirst ? 1 : 0);
    }
}

TEST_F(NavDatabaseTest, AnAirwayIsTheLaterFilesUnlessItRunsElsewhere) {
    TestDatabase older;
    older.expiry = 20230101;
    older.region = 'w';
    for (const std::string_view route : {"A B C", "C X", "FAR AWAY"}) older.addAirway("V1", route);
    TestDatabase later;
    later.expiry = 20250101;
    later.region = 'w';
    later.addAirway("V1", "A\nNEW C");
    TestDatabase same = later;
    same.addAirway("V1", "NEW C D");
    open(older);
    open(later);
    open(same);
    std::vector<std::string> routes;
    database_.GetAirwayRoutes("V1", routes);
    EXPECT_EQ(routes, (std::vector<std::string>{"C X", "FAR AWAY", "A\nNEW C", "NEW C D"}));
}

TEST_F(NavDatabaseTest, FindsPlacesByWordsOfTheirNames) {
    TestDatabase content;
    content.addAirport("KPDX", 45.6, -122.6, "Portland Intl");
    content.addAirport("KPWM", 43.6, -70.3, "Portland Jetport");
    content.addAirport("OTHER", 45.7, -122.6, "Sportland");
    open(content);
    UserRecordStore own;
    auto strip = std::make_unique<AirportRecord>();
    strip->key = "a.OWN";
    strip->ident.assign("OWN");
    strip->position = at(44, -122.6);
    strip->SetName("Bob's PORTLAND-strip");
    own.add(std::move(strip));
    database_.setUserRecords(&own);
    const auto found = [this](std::string_view typed, std::optional<GeoPoint> near) {
        std::string idents;
        for (const NamedPlace& each : database_.placesByName(typed, kAllKinds, near, 9))
            idents += std::string(each.place.ident.view()) + ' ';
        return idents;
    };
    // A file without an index of names: what is near.
    EXPECT_EQ(found("portl", at(45.6, -122)), "KPDX OWN ");
    EXPECT_EQ(found("portland i", at(45.6, -122)), "KPDX OWN ") << "words of one letter do not count";
    EXPECT_EQ(found("INTL port", at(45.6, -122)), "KPDX ");
    EXPECT_EQ(found("po", at(45.6, -122)), "");
    EXPECT_EQ(found("portl", std::nullopt), "OWN ");
}

}}  // namespace korvel
