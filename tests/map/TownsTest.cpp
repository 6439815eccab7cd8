#include <gtest/gtest.h>

#include "cockpit/PlaceSet.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "ground/MemoryFile.h"
#include "ground/SmallMap.h"
#include "ground/basemap/BaseMap.h"
#include "map/DayMap.h"
#include "map/feeds/TownFeed.h"
#include "navdb/file/DatabaseTables.h"

namespace korvel { namespace {

class TownsOnTheMap : public testing::Test {
 protected:
    TownsOnTheMap() { data_.position = GeoPoint{48 * kDegToRad, 11 * kDegToRad}; }

    void town(double north, double east, std::uint32_t population, const char* name, bool capital = false) {
        towns_.push_back({{(48 + north) * kDegToRad, (11 + east) * kDegToRad}, population, capital, false, name});
    }
    const RecordingCanvas& paint(int rangeNm) {
        day_.viewport.chooseRange(rangeNm);
        MapContent content = day_.content(data_);
        content.towns = &towns_;
        return day_.paint(content);
    }
    int named(int rangeNm) {
        const auto& elements = paint(rangeNm).elements();
        return static_cast<int>(
            std::ranges::count_if(elements, [](const auto& each) { return each.text.starts_with("Town"); }));
    }

    CockpitData data_;
    DayMap day_{PageId::NorthUp, 1280, 800, 25};
    std::vector<Town> towns_;
};

TEST_F(TownsOnTheMap, TheBoundGrowsWithTheRange) {
    const struct {
        int rangeNm;
        std::uint64_t least;
    } bounds[] = {{1, 1000}, {8, 1000}, {9, 2000}, {25, 5000}, {40, 20000}, {65, 50000}, {100, 100000}, {250, 500000},
        {500, 1000000}, {1000, 3000000}};
    for (const auto& [rangeNm, least] : bounds) EXPECT_EQ(leastWeight(rangeNm), least) << rangeNm;
    EXPECT_EQ(weightOf({{}, 8000, true, false, ""}), 80000U);
}

TEST_F(TownsOnTheMap, LonelyCountryNamesItsVillages) {
    for (int i = 0; i < 5; ++i) town(0.07 * (i + 1), 0.1, 5000, "Town");
    town(-0.1, 0.1, 1000, "Town");
    EXPECT_EQ(named(25), 6) << "five are few: a fifth of the bound will do";
    towns_.insert(towns_.begin(), towns_.front());
    towns_.front().position.lon += 0.3 * kDegToRad;
    EXPECT_EQ(named(25), 6) << "six are enough";
    EXPECT_EQ(paint(25).findText("Towne"), nullptr);
}

TEST_F(TownsOnTheMap, AtMostFortyAndTheWeightierHasTheRoom) {
    town(0.3, 0.3, 900000, "Large");
    town(0.3, 0.303, 90000, "Small");
    for (int row = 0; row < 10; ++row)
        for (int column = 0; column < 6; ++column) town(-0.4 + 0.07 * row, -0.6 + 0.2 * column, 50000, "Town");
    EXPECT_EQ(named(25), 39);
    EXPECT_NE(day_.canvas.findText("Large"), nullptr);
    EXPECT_EQ(day_.canvas.findText("Small"), nullptr) << "would stand on the other's symbol";
}

TEST_F(TownsOnTheMap, NamesYieldToAirportsAndHaveRoomBeforeNavaids) {
    PlaceSet places;
    MapPlace airport;
    airport.place.kind = kAirportKind;
    airport.place.ident = Ident("KBFI");
    airport.place.position = {48.1 * kDegToRad, 11.1 * kDegToRad};
    airport.placeClass = PlaceClass::TowerAirport;
    places.places.push_back(airport);
    MapPlace vor;
    vor.place.kind = kVorKind;
    vor.place.ident = Ident("SEA");
    vor.place.position = {48.2 * kDegToRad, 11.0 * kDegToRad};
    vor.placeClass = PlaceClass::LowVor;
    places.places.push_back(vor);
    town(0.1, 0.1, 90000, "Hidden");
    const Point free = day_.content(data_).view.projection.project(vor.place.position);
    const GeoPoint left = day_.ground(data_, {free.x - 60, free.y});
    const GeoPoint right = day_.ground(data_, {free.x + 25, free.y});
    for (const GeoPoint at : {left, right}) { towns_.push_back({at, 80000, false, false, "Longtownname"}); }
    day_.viewport.chooseRange(25);
    MapContent content = day_.content(data_);
    content.towns = &towns_;
    content.places = &places;
    day_.paint(content);
    EXPECT_NE(day_.canvas.findText("KBFI"), nullptr);
    EXPECT_EQ(day_.canvas.findText("Hidden"), nullptr) << "on the airport's symbol";
    EXPECT_NE(day_.canvas.findText("Longtownname"), nullptr);
}

TEST_F(TownsOnTheMap, AreFetchedAroundTheViewAsTheSettingsSay) {
    BaseMap map;
    ASSERT_EQ(map.open(std::make_unique<MemoryFile>(smallMap()), "small.map"), "");
    TownFeed feed(&map);
    Settings settings;
    const auto update = [&](int rangeNm, double east) {
        day_.viewport.chooseRange(rangeNm);
        CockpitData there;
        there.position = GeoPoint{48.1 * kDegToRad, (11.6 + east) * kDegToRad};
        return feed.update({day_.content(there).view, there, settings});
    };
    const auto shown = [&] {
        MapContent content = day_.content(data_);
        feed.addTo(content);
        return content.towns;
    };
    EXPECT_TRUE(update(25, 0));
    ASSERT_NE(shown(), nullptr);
    ASSERT_EQ(shown()->size(), 2U);
    EXPECT_EQ(shown()->front().name, "München");
    EXPECT_FALSE(update(25, 0.05)) << "has room around the view";
    EXPECT_TRUE(update(25, 5));
    EXPECT_EQ(shown()->size(), 0U);
    EXPECT_TRUE(update(500, 0));
    EXPECT_EQ(shown()->size(), 1U) << "a small town is none at this range";
    settings.mapMask &= ~(1 << 25);
    EXPECT_FALSE(update(25, 0));
    EXPECT_EQ(shown(), nullptr);
    settings = {};
    feed.forget();
    EXPECT_EQ(shown(), nullptr);
    EXPECT_TRUE(update(25, 0));
}

}}  // namespace korvel
