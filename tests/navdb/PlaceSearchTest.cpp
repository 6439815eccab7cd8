#include <algorithm>
#include <array>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "geo/Geodesy.h"
#include "navdb/NavDatabase.h"
#include "navdb/TestDatabase.h"
#include "navdb/file/LittleEndian.h"
#include "navdb/records/NavaidRecord.h"
#include "navdb/search/PlaceSearch.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

/// A known place: what the searches are checked against.
struct Sample {
    std::string ident;
    KindMask kind;
    double latDeg;
    double lonDeg;

    [[nodiscard]] GeoPoint position() const { return {.lat = latDeg * kDegToRad, .lon = lonDeg * kDegToRad}; }
};

class PlaceSearchTest : public ::testing::Test {
 protected:
    PlaceSearchTest() {
        std::mt19937 random(20070315);
        std::uniform_int_distribution<int> lat(-90000000, 90000000);
        std::uniform_int_distribution<int> lon(-180000000, 180000000);
        for (std::size_t i = 0; i < 3000; ++i) add(i % 4, lat(random) * 1e-6, lon(random) * 1e-6);
        // Whole degrees, both names of the 180th meridian, the poles, a cluster.
        for (const double edge : {-180.0, -179.0, -1.0, 0.0, 1.0, 179.999999, 180.0})
            for (const double latitude : {-90.0, -89.999, 0.0, 51.5, 90.0}) add(samples_.size() % 4, latitude, edge);
        for (std::size_t i = 0; i < 400; ++i) add(i % 4, 51.0 + lat(random) * 1e-8, lon(random) * 1e-8);
    }
    void add(std::size_t kind, double lat, double lon) {
        const double latDeg = std::round(lat * 1e6) * 1e-6;  // as a file holds them
        const double lonDeg = std::round(lon * 1e6) * 1e-6;
        const std::string ident = numbered("P", samples_.size());
        static constexpr std::array<KindMask, 4> kKinds{kAirportKind, kVorKind, kFixKind, kNdbKind};
        samples_.push_back({ident, kKinds[kind], latDeg, lonDeg});
        if (samples_.size() % 10 == 0) {
            auto record = std::make_unique<VorRecord>();
            samples_.back().kind = kVorKind;
            record->key = "v." + ident;
            record->ident.assign(ident);
            record->position = samples_.back().position();
            userRecords_.add(std::move(record));
        } else if (kind == 0) {
            content_.addAirport(ident, latDeg, lonDeg, "", samples_.size() % 3 == 0 ? "_AP2" : "_APT");
        } else if (kind == 2) {
            content_.addFix(ident, latDeg, lonDeg);
        } else {
            content_.addNavaid(ident, latDeg, lonDeg, kind == 1 ? 0x20 : 0x24, 110.0);
        }
    }
    void open() {
        database_.clear();
        ASSERT_EQ(database_.openFile(content_.write(folder_.path(), "places.ng2")), "");
        database_.setUserRecords(&userRecords_);
    }
    void checkNearest(GeoPoint here, KindMask kinds, std::size_t count, double withinNm) {
        std::vector<double> expected;
        for (const Sample& sample : samples_) {
            const double distance = DistanceNm(here, sample.position());
            if ((sample.kind & kinds) != 0 && distance <= withinNm) expected.push_back(distance);
        }
        std::sort(expected.begin(), expected.end());
        expected.resize(std::min(expected.size(), count));
        const auto found = database_.nearest(here, kinds, count, withinNm);
        ASSERT_EQ(found.size(), expected.size()) << here.lat << ' ' << here.lon;
        for (std::size_t i = 0; i < found.size(); ++i) {
            EXPECT_NEAR(found[i].distanceNm, expected[i], 1e-6);
            EXPECT_NE(found[i].place.kind & kinds, 0U);
        }
    }
    void checkBox(const GeoBox& box, KindMask kinds) {
        double width = box.east - box.west;
        width += width < 0 ? 360 : 0;
        std::set<std::string> expected;
        for (const Sample& sample : samples_) {
            const double past = PositiveMod(sample.lonDeg - box.west, 360);
            if ((sample.kind & kinds) != 0 && sample.latDeg >= box.south && sample.latDeg <= box.north &&
                (past <= width || width >= 360))
                expected.insert(sample.ident);
        }
        std::vector<Place> places;
        database_.placesIn(box, kinds, 100000, places);
        std::set<std::string> found;
        for (const Place& place : places) found.insert(std::string(place.ident.view()));
        EXPECT_EQ(found.size(), places.size());
        EXPECT_EQ(found, expected) << box.west << ' ' << box.east;
    }
    void checkAll() {
        std::mt19937 random(4);
        std::uniform_real_distribution<double> lat(-90, 90);
        std::uniform_real_distribution<double> lon(-180, 180);
        std::vector<GeoPoint> points{{.lat = kPi / 2, .lon = 0}, {.lat = -kPi / 2, .lon = 1}, {.lat = 1.5707, .lon = 3},
            {.lat = 0, .lon = kPi}, {.lat = 0, .lon = -kPi}, {.lat = 0.89, .lon = 0}, {.lat = 1.2, .lon = -3.14159}};
        for (int i = 0; i < 40; ++i) points.push_back({.lat = lat(random) * kDegToRad, .lon = lon(random) * kDegToRad});
        for (const GeoPoint& point : points) {
            checkNearest(point, kAllKinds, 20, 300);
            checkNearest(point, kAirportKind, 5, 20000);
            checkNearest(point, kVorKind | kFixKind, 1000, 700);
        }
        for (const GeoBox& box : {GeoBox{-90, -180, 90, 180}, {-10, 170, 10, -170}, {50, -1.5, 52, 1.5},
                 {80, -200, 90, 160}, {-5, 179.5, 5, 181}, {0, 0, 0, 0}, {-60, 10, 60, 9.5}}) {
            checkBox(box, kAllKinds);
            checkBox(box, kNdbKind);
            checkBox(box, kAirportKind);
        }
    }

    TempFolder folder_;
    VirtualClock clock_;
    TestDatabase content_;
    UserRecordStore userRecords_;
    NavDatabase database_{clock_};
    std::vector<Sample> samples_;
};

TEST_F(PlaceSearchTest, AgreesWithLookingAtEveryPlaceWithAndWithoutAnAreaGrid) {
    for (const bool grid : {true, false}) {
        content_.hasAreaGrid = grid;
        open();
        checkAll();
    }
}

TEST_F(PlaceSearchTest, FindsWhatTwoFilesHoldOnce) {
    TestDatabase older = content_;
    older.expiry = 20090101;
    older.region = 'w';
    open();
    ASSERT_EQ(database_.openFile(older.write(folder_.path(), "older.ng2")), "");
    checkAll();
    std::vector<Place> places;
    database_.placesIn({-90, -180, 90, 180}, kAllKinds, 100000, places);
    EXPECT_TRUE(
        std::ranges::all_of(places, [](const Place& place) { return place.match.file <= 0 && !place.pastDate; }));
}

TEST_F(PlaceSearchTest, DoesNotBelieveAGridThatTheRowsContradict) {
    const auto truth = content_.bytes();
    auto bytes = truth;
    const std::uint32_t grid = loadU32(bytes, kAreaGridOffset);
    for (std::size_t word = 1; word <= kCellCount + 1; ++word) {
        const std::uint32_t other = 1 + (static_cast<std::uint32_t>(word) * 7919U) % kCellCount;
        storeU32(bytes, grid + word * 4, loadU32(truth, grid + other * 4));
    }
    writeBytes(folder_.path() / "lies.ng2", bytes);
    ASSERT_EQ(database_.openFile(folder_.path() / "lies.ng2"), "");
    database_.setUserRecords(&userRecords_);
    checkNearest({.lat = 0.89, .lon = 0}, kAllKinds, 20, 300);
    checkBox({50, -1.5, 52, 1.5}, kAllKinds);
    checkBox({-10, 170, 10, -170}, kAirportKind);
}

TEST_F(PlaceSearchTest, LeavesOutExcludedRowsAndStopsAtTheLimit) {
    open();
    const GeoPoint here{.lat = 0.89, .lon = 0};
    const auto before = database_.nearest(here, kAirportKind, 2, 100);
    ASSERT_EQ(before.size(), 2U);
    const auto record = database_.recordOf(before[0].place);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->ident, before[0].place.ident);
    EXPECT_EQ(record->position.lat, before[0].place.position.lat);
    database_.exclude(before[0].place.match);
    EXPECT_EQ(database_.nearest(here, kAirportKind, 1, 100)[0].place.ident, before[1].place.ident);
    std::vector<Place> places;
    database_.placesIn({-90, -180, 90, 180}, kAllKinds, 7, places);
    EXPECT_EQ(places.size(), 7U);
    const auto isNorthern = [this](const Place& place) {
        EXPECT_TRUE(place.ident.empty()) << "read for what is kept alone";
        EXPECT_NE(database_.recordOf(place), nullptr) << "no lock keeps a filter from the database";
        return place.position.lat > 0.5 && place.kind == kAirportKind;
    };
    database_.placesIn({-90, -180, 90, 180}, kAllKinds, 7, places, isNorthern);
    EXPECT_EQ(places.size(), 7U) << "what is refused does not count";
    for (const Place& place : places) {
        EXPECT_GT(place.position.lat, 0.5);
        EXPECT_FALSE(place.ident.empty());
    }
    EXPECT_TRUE(database_.nearest(GeoPoint{}, kAllKinds, 3, 100).empty());
}

}}  // namespace korvel
