#include <algorithm>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "config/Settings.h"
#include "map/DayMap.h"
#include "map/PlaceHit.h"
#include "map/feeds/MapFeeds.h"
#include "navdb/NavDatabase.h"
#include "navdb/TestDatabase.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

constexpr Rect kView{0, 0, 800, 400};

MapProjection lookingAt(double lat, double lon, int rangeNm) {
    return {atDegrees(lat, lon), {400, 230}, 230.0 / rangeNm, 0};
}

class FeedTest : public ::testing::Test {
 protected:
    void open(const TestDatabase& file) { ASSERT_EQ(database_.openFile(file.write(folder_.path(), "places.ng2")), ""); }
    FeedRequest look(double lat, double lon, int rangeNm) {
        viewport_.layout(PageId::Map, 800, 400);
        viewport_.chooseRange(rangeNm);
        return {{viewport_, atDegrees(lat, lon), 0, kView}, data_, settings_};
    }

    TempFolder folder_;
    VirtualClock clock_;
    NavDatabase database_{clock_};
    MapViewport viewport_;
    CockpitData data_;
    Settings settings_;
};

std::string identsOf(const PlaceSet& set) {
    std::vector<std::string> idents;
    for (const MapPlace& place : set.places) idents.emplace_back(place.place.ident.view());
    std::sort(idents.begin(), idents.end());
    std::string text;
    for (const std::string& ident : idents) text += ident + ' ';
    return text;
}

TEST_F(FeedTest, TheViewFindsItsPlacesAcrossTheMeridianAndAtThePole) {
    TestDatabase file;
    file.addAirport("EAST", -17, 179.9);
    file.addAirport("WEST", -17, -179.9);
    file.addAirport("FAR", -17, 177);
    file.addAirport("POLE", 89.9, -40);
    open(file);
    PlaceFeed places(database_);
    EXPECT_TRUE(places.update(look(-17, 179.95, 15)));
    EXPECT_EQ(identsOf(places.set()), "EAST WEST ");
    EXPECT_TRUE(places.isComplete());
    EXPECT_FALSE(places.update(look(-17, -179.98, 15))) << "still inside what was fetched";
    for (const MapPlace& place : places.set().places)
        EXPECT_TRUE(kView.contains(lookingAt(-17, -179.98, 15).project(place.place.position)));
    EXPECT_TRUE(places.update(look(-17, -179.0, 15))) << "the view has left it";
    EXPECT_EQ(identsOf(places.set()), "");
    EXPECT_TRUE(places.update(look(-17, -179.0, 250))) << "another range";
    EXPECT_EQ(identsOf(places.set()), "EAST FAR WEST ");
    EXPECT_TRUE(places.update(look(89.8, 140, 40)));
    EXPECT_EQ(identsOf(places.set()), "POLE ");
    places.forget();
    EXPECT_TRUE(places.update(look(89.8, 140, 40)));
}

TEST_F(FeedTest, FeedsAreOneToTheViewUntilTheLastIsComplete) {
    TestDatabase file;
    for (int i = 0; i <= static_cast<int>(PlaceFeed::kRecordsPerUpdate); ++i)
        file.addAirport(numbered("A", 100 + i), 50 + i * 1e-4, 8);
    open(file);
    MapFeeds feeds(database_);
    const auto update = [&] { return feeds.update(look(50, 8, 65)); };
    EXPECT_TRUE(update());
    EXPECT_FALSE(feeds.isComplete()) << "more records than one piece";
    EXPECT_TRUE(update());
    EXPECT_TRUE(feeds.isComplete());
    EXPECT_FALSE(update());
    const auto track = std::make_shared<Track>(clock_);
    track->AddTrackPoint(atDegrees(50, 8), 100, 0, 2000);
    data_.track = track;
    EXPECT_TRUE(update()) << "the track has grown";
    EXPECT_FALSE(update());
    data_.position = atDegrees(50, 8);
    const DayMap map(PageId::Map, 800, 400, 65);
    MapContent content = map.content(data_);
    feeds.addTo(content);
    EXPECT_EQ(content.places, &feeds.places());
    EXPECT_TRUE(IsValid(content.track->end()));
    feeds.forget();
    EXPECT_TRUE(feeds.places().places.empty() && !IsValid(content.track->end()));
}

TEST(PlaceHit, TheNearestComesFirstAndAmongEquallyNearTheMoreImportant) {
    const MapProjection projection = lookingAt(50, 8, 8);
    PlaceSet set;
    const auto add = [&](std::string_view ident, Point at, double rank) {
        MapPlace& place = set.places.emplace_back();
        place.place.position = projection.unproject(at);
        place.place.kind = kAirportKind;
        place.place.ident.assign(ident);
        place.placeClass = PlaceClass::TowerAirport;
        place.rank = rank;
    };
    add("BIG", {108, 100}, 9000);
    add("NEAR", {103, 100}, 500);
    add("EDGE", {100, 123}, 400);
    add("LONG", {300, 100}, 300);
    add("AWAY", {100, 131}, 200);
    auto details = std::make_shared<PlaceDetails>();
    details->runways = {{.ends = {projection.unproject({114, 90}), projection.unproject({400, 90})}, .ids = {}}};
    set.places[3].details = details;
    const auto hit = [&](int rangeNm) {
        std::string text;
        for (const MapPlace* place : placesAt(set, projection, rangeNm, {100, 100}, 30))
            text += std::string(place->place.ident.view()) + ' ';
        return text;
    };
    EXPECT_EQ(hit(8), "BIG NEAR LONG EDGE ");
    EXPECT_EQ(hit(65), "BIG NEAR EDGE ") << "runways are not drawn there";
}

}}  // namespace korvel
