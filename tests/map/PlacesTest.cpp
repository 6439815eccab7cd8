#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/Cockpit.h"
#include "cockpit/NearAirports.h"
#include "config/Settings.h"
#include "geo/Variation.h"
#include "map/DayMap.h"
#include "map/MapView.h"
#include "map/PlaceHit.h"
#include "map/feeds/MapFeeds.h"
#include "map/layers/PlaceLayout.h"
#include "navdb/NavDatabase.h"
#include "navdb/TestDatabase.h"
#include "navdb/records/AirportRecord.h"
#include "navdb/user/UserRecordStore.h"
#include "pages/AirportPicture.h"
#include "pages/NearestPage.h"
#include "paint/Clip.h"
#include "paint/ColorScheme.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

constexpr Rect kView{0, 0, 800, 400};

MapProjection lookingAt(double lat, double lon, int rangeNm) {
    return {atDegrees(lat, lon), {400, 230}, 230.0 / rangeNm, 0};
}

class PlacesTest : public ::testing::Test {
 protected:
    void open(const TestDatabase& file) { ASSERT_EQ(database_.openFile(file.write(folder_.path(), "places.ng2")), ""); }
    void addUserAirport(const std::string& ident, double lat, double lon, std::uint32_t flags) {
        auto airport = std::make_unique<AirportRecord>();
        airport->ident.assign(ident);
        airport->key = "a." + ident;
        airport->position = atDegrees(lat, lon);
        airport->flags = flags;
        records_.add(std::move(airport));
        database_.setUserRecords(&records_);
    }

    TempFolder folder_;
    VirtualClock clock_{LocalTime{2024, 5, 1, 12, 0, 0}};
    UserRecordStore records_;
    NavDatabase database_{clock_};
};

std::string identsOf(const PlaceSet& set) {
    std::vector<std::string> idents;
    for (const MapPlace& place : set.places) idents.emplace_back(place.place.ident.view());
    std::sort(idents.begin(), idents.end());
    std::string text;
    for (const std::string& ident : idents) text += ident + ' ';
    return text;
}

TEST_F(PlacesTest, TheViewFindsItsPlacesAcrossTheMeridianAndAtThePole) {
    TestDatabase file;
    file.addAirport("EAST", -17, 179.9);
    file.addAirport("WEST", -17, -179.9);
    file.addAirport("FAR", -17, 177);
    file.addAirport("POLE", 89.9, -40);
    open(file);
    PlaceFeed places(database_);
    const CockpitData data;
    const Settings settings;
    const auto look = [&](double lat, double lon, int rangeNm) {
        MapViewport viewport;
        viewport.layout(PageId::Map, 800, 400);
        viewport.chooseRange(rangeNm);
        return places.update({{viewport, atDegrees(lat, lon), 0, kView}, data, settings});
    };
    EXPECT_TRUE(look(-17, 179.95, 15));
    EXPECT_EQ(identsOf(places.set()), "EAST WEST ");
    EXPECT_TRUE(places.isComplete());
    EXPECT_FALSE(look(-17, -179.98, 15)) << "still inside what was fetched";
    for (const MapPlace& place : places.set().places)
        EXPECT_TRUE(kView.contains(lookingAt(-17, -179.98, 15).project(place.place.position)));
    EXPECT_TRUE(look(-17, -179.0, 15)) << "the view has left it";
    EXPECT_EQ(identsOf(places.set()), "");
    EXPECT_TRUE(look(-17, -179.0, 250)) << "another range";
    EXPECT_EQ(identsOf(places.set()), "EAST FAR WEST ");
    EXPECT_TRUE(look(89.8, 140, 40));
    EXPECT_EQ(identsOf(places.set()), "POLE ");
    places.forget();
    EXPECT_TRUE(look(89.8, 140, 40));
}

TEST_F(PlacesTest, FeedsAreOneToTheViewUntilTheLastIsComplete) {
    TestDatabase file;
    for (int i = 0; i <= static_cast<int>(PlaceFeed::kRecordsPerUpdate); ++i)
        file.addAirport(numbered("A", 100 + i), 50 + i * 1e-4, 8);
    open(file);
    MapFeeds feeds(database_);
    MapViewport viewport;
    viewport.layout(PageId::Map, 800, 400);
    CockpitData data;
    const Settings settings;
    const auto update = [&] { return feeds.update({{viewport, atDegrees(50, 8), 0, kView}, data, settings}); };
    EXPECT_TRUE(update());
    EXPECT_FALSE(feeds.isComplete()) << "more records than one piece";
    EXPECT_TRUE(update());
    EXPECT_TRUE(feeds.isComplete());
    EXPECT_FALSE(update());
    VirtualClock clock;
    const auto track = std::make_shared<Track>(clock);
    track->AddTrackPoint(atDegrees(50, 8), 100, 0, 2000);
    data.track = track;
    EXPECT_TRUE(update()) << "the track has grown";
    EXPECT_FALSE(update());
    data.position = atDegrees(50, 8);
    const DayMap map;
    MapContent content = map.content(data, viewport, kView);
    feeds.addTo(content);
    EXPECT_EQ(content.places, &feeds.places());
    EXPECT_TRUE(IsValid(content.track->end()));
    feeds.forget();
    EXPECT_TRUE(feeds.places().places.empty() && !IsValid(content.track->end()));
}

TEST(PlaceClass, SaysWhatShowsHowFarOut) {
    struct Case {
        KindMask kind;
        std::uint32_t flags;
        int toNm;                ///< the largest range at which it shows, 0 for none
        int toNmWithEverything;  ///< with all options on
    };
    const Case cases[] = {{kAirportKind, kAirportTower | kAirportHardSurface, 1000, 1000},
        {kAirportKind, kAirportTower | kAirportHardSurface | kAirportPrivate, 0, 1000},
        {kAirportKind, kAirportHardSurface, 500, 500}, {kAirportKind, 0, 65, 65},
        {kAirportKind, kAirportHeliport | kAirportTower | kAirportHardSurface, 15, 15}, {kVorKind, kUsageHigh, 0, 250},
        {kVorKind, kUsageBoth, 250, 250}, {kNdbKind, kUsageLow, 65, 65}, {kFixKind, kUsageLow, 25, 25},
        {kFixKind, kUsageTerminal, 4, 4}, {kFixKind, kUsageVisual, 0, 25}};
    const MapPlaceOptions everything{.highNavaids = true, .visualPoints = true, .privateAirports = true};
    const auto reach = [](const Place& place, const MapPlaceOptions& options) {
        int toNm = 0;
        for (const int rangeNm : kRangeStepsNm)
            if (isShown(place, classOf(place), rangeNm, options)) toNm = rangeNm;
        return toNm;
    };
    for (const Case& each : cases) {
        Place place;
        place.kind = each.kind;
        place.flags = each.flags;
        EXPECT_EQ(reach(place, {}), each.toNm) << each.kind << " " << each.flags;
        EXPECT_EQ(reach(place, everything), each.toNmWithEverything) << each.kind;
        EXPECT_EQ(reach(place, {.classMask = 0}), 0) << each.kind;
    }
}

TEST(PlaceClass, NavaidsRotateThroughTheSetsThatAreEnabled) {
    Settings settings;
    settings.highNavaids = settings.vrpNavaids = true;
    const auto shown = [&settings](KindMask kind, std::uint32_t flags) {
        Place place;
        place.kind = kind;
        place.flags = flags;
        return isShown(place, classOf(place), 4, MapPlaceOptions::from(settings));
    };
    const auto all = [&] {
        std::string list;
        for (const auto& [flags, letter] : {std::pair{kUsageLow, 'l'}, {kUsageHigh, 'h'}, {kUsageBoth, 'b'},
                 {kUsageTerminal, 't'}, {kUsageVisual, 'v'}})
            if (shown(kFixKind, flags)) list += letter;
        EXPECT_TRUE(shown(kAirportKind, kAirportHardSurface) && shown(kFixKind, kUsageMarked));
        return list;
    };
    NavaidSet set = NavaidSet::Low;
    for (const char* expected : {"lhbtv", "hb", "t", "v", "", "lhbtv"}) {
        settings.rotateModes = {static_cast<int>(set), 4, 4};
        EXPECT_EQ(all(), expected);
        set = nextNavaidSet(set, settings);
    }
    settings.rotateModes = {4, 3, 2};  // two sets at once
    EXPECT_EQ(all(), "tv");
    settings.rotateNavaids = false;
    EXPECT_EQ(all(), "lhbtv");
    settings.highNavaids = settings.vrpNavaids = false;
    EXPECT_EQ(nextNavaidSet(NavaidSet::Low, settings), NavaidSet::Term);
    EXPECT_EQ(nextNavaidSet(NavaidSet::Term, settings), NavaidSet::Off);
}

MapPlace placeAt(std::string_view ident, Point at, double rank, const MapProjection& projection) {
    MapPlace place;
    place.place.position = projection.unproject(at);
    place.place.kind = kAirportKind;
    place.place.flags = kAirportTower | kAirportHardSurface;
    place.place.ident.assign(ident);
    place.placeClass = PlaceClass::TowerAirport;
    place.rank = rank;
    return place;
}

MapRunway runwayBetween(Point from, Point to, const MapProjection& projection) {
    return {.ends = {projection.unproject(from), projection.unproject(to)}, .ids = {"09", "27"}};
}

TEST(PlaceHit, TheNearestComesFirstAndAmongEquallyNearTheMoreImportant) {
    const MapProjection projection = lookingAt(50, 8, 8);
    PlaceSet set;
    set.places = {placeAt("BIG", {108, 100}, 9000, projection), placeAt("NEAR", {103, 100}, 500, projection),
        placeAt("EDGE", {100, 123}, 400, projection), placeAt("LONG", {300, 100}, 300, projection),
        placeAt("AWAY", {100, 131}, 200, projection)};
    auto details = std::make_shared<PlaceDetails>();
    details->runways = {runwayBetween({114, 90}, {400, 90}, projection)};
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

/// The page "North-Up" of 800 by 400 pixels at 8 NM.
struct NearMap {
    MapViewport viewport;

    NearMap() {
        viewport.layout(PageId::NorthUp, 800, 400);
        viewport.chooseRange(8);
    }
    void paint(RecordingCanvas& canvas, const CockpitData& data, const PlaceSet& set) const {
        const DayMap map;
        MapContent content = map.content(data, viewport, canvas.area());
        content.turns = false;
        content.places = &set;
        paintMap(canvas, content);
    }
};

TEST(PlaceLayer, NamesKeepApartAndRunwaysCarryTheirNumbers) {
    const NearMap map;
    const CockpitData data = flying();
    const MapProjection projection = map.viewport.projection(*data.position, 0);
    PlaceSet set;
    set.places = {placeAt("FIELD", {200, 100}, 9000, projection), placeAt("STRIP", {600, 100}, 800, projection)};
    for (int i = 0; i < 30; ++i)  // too many for one spot
        set.places.push_back(placeAt(numbered("N", 100 + i), {596.0 + i, 104.0 - i}, 700 - i, projection));
    auto details = std::make_shared<PlaceDetails>();
    details->runways = {runwayBetween({150, 100}, {250, 100}, projection)};
    set.places[0].details = details;
    set.places[1].place.expired = true;
    RecordingCanvas canvas(800, 400);
    map.paint(canvas, data, set);

    ASSERT_NE(canvas.findText("(STRIP)"), nullptr) << "out of date";
    ASSERT_NE(canvas.findText("09"), nullptr);
    ASSERT_NE(canvas.findText("27"), nullptr);
    EXPECT_LT(canvas.findText("09")->points.front().x, 150);
    EXPECT_GT(canvas.findText("27")->points.front().x, 250);
    std::vector<Rect> names;
    for (const auto& element : canvas.elements())
        if (element.kind == RecordingCanvas::Kind::Text && element.text.starts_with("N1")) {
            names.push_back(element.area);  // without the room for letters below the line
            names.back().height = canvas.textMeasure().measure(element.text, element.style.font).capHeight;
        }
    EXPECT_GE(names.size(), 2U);
    EXPECT_LT(names.size(), 30U);
    for (std::size_t i = 0; i < names.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(overlap(names[i], names[j])) << i << " and " << j;
}

TEST(PlaceLayer, TheGridIsNamedWherePlacesLeaveRoom) {
    const NearMap map;
    const CockpitData data = flying();
    PlaceSet set;
    const auto whereIsTheGridNamed = [&] {
        RecordingCanvas canvas(800, 400);
        map.paint(canvas, data, set);
        const auto label = std::ranges::find_if(canvas.elements(), [](const RecordingCanvas::Element& element) {
            return element.text.starts_with("N") && element.text.ends_with("'");
        });
        return label != canvas.elements().end() ? label->area : Rect{};
    };
    const Rect before = whereIsTheGridNamed();
    ASSERT_GT(before.width, 0);
    const MapProjection projection = map.viewport.projection(*data.position, 0);
    set.places = {placeAt("FIELD", before.center(), 9000, projection)};
    const Rect after = whereIsTheGridNamed();
    ASSERT_GT(after.width, 0) << "there is more room along the line";
    EXPECT_FALSE(grown(after, symbolRadius(set.places[0].placeClass, 14)).contains(before.center()));
}

TEST(PlaceLayer, NamesKeepOffTheLegOrLieOverIt) {
    const NearMap map;
    CockpitData data = flying();
    const MapProjection projection = map.viewport.projection(*data.position, 0);
    data.legStart = projection.unproject({-100, 100});
    data.activeWaypoint = projection.unproject({900, 104});
    PlaceSet set;
    for (int i = 0; i < 5; ++i)
        set.places.push_back(placeAt(numbered("N", 100 + i), {100.0 + 120 * i, 98.0 + 2 * i}, 700, projection));
    const auto crossed = [&] {
        RecordingCanvas canvas(800, 400);
        map.paint(canvas, data, set);
        int names = 0;
        int count = 0;
        for (const auto& element : canvas.elements()) {
            EXPECT_TRUE(names == 0 || element.kind != RecordingCanvas::Kind::Polyline) << "half a name is another one";
            if (element.kind == RecordingCanvas::Kind::Text && element.text.starts_with("N1")) {
                ++names;
                const double bottom = element.area.y + canvas.textMeasure().measure("N1", element.style.font).capHeight;
                count += element.area.y < 104 && bottom > 100 ? 1 : 0;
            }
        }
        EXPECT_EQ(names, static_cast<int>(set.places.size()));
        return count;
    };
    EXPECT_EQ(crossed(), 0);
    data.legStart.reset();
    EXPECT_EQ(crossed(), 5) << "beside their symbols";
}

TEST(LabelSpace, ANameOnALineIsBetterThanNone) {
    EXPECT_FALSE(overlap({0, 0, 10, 10}, {10, 0, 10, 10})) << "they only touch";
    EXPECT_TRUE(overlap({0, 0, 10, 10}, {9, 0, 10, 10}));
    LabelSpace space({0, 0, 100, 100});
    LabelSpace lines({0, 0, 100, 100});
    lines.reserve({0, 0, 100, 50});
    const std::vector<Rect> boxes{{-5, 60, 10, 10}, {10, 10, 10, 10}, {10, 30, 10, 10}, {10, 70, 10, 10}};
    EXPECT_EQ(claimFirst(space, boxes, lines), 3U);
    EXPECT_EQ(claimFirst(space, boxes, lines), 1U);
    EXPECT_EQ(claimFirst(space, boxes, lines), 2U);
    EXPECT_EQ(claimFirst(space, boxes, lines), std::nullopt);
}

TEST_F(PlacesTest, NearAirportsCarryWhatThePilotAsksFor) {
    TestDatabase file;
    file.addAirport("EDAA", 50, 8.5, "Aaheim");
    file.addRunwayEnd("EDAA", 1, "18", 2500);
    file.addRunwayEnd("EDAA", 1, "36", 2500);
    file.addRunwayEnd("EDAA", 2, "07", 4100);
    file.addRunwayEnd("EDAA", 2, "25", 4100);
    file.addComm("EDAA", "ATIS", 127.35);
    file.addComm("EDAA", "CTAF/UNICOM", 122.8);
    file.addComm("EDAA", "TWR", 118.1);
    file.addAirport("EDBB", 51, 8);
    open(file);
    addUserAirport("HELI", 50, 8.1, kAirportHeliport);
    addUserAirport("OWN", 50, 8.2, kAirportPrivate);
    const Variation variation{.databaseDeg = 2};
    std::vector<NearAirport> found;
    findNearAirports(database_, atDegrees(50, 8), variation, {}, found);
    ASSERT_EQ(found.size(), 2U);
    const NearAirport& first = found[0];
    EXPECT_EQ(first.key, "a.EDAA");
    EXPECT_EQ(first.name, "Aaheim");
    EXPECT_NEAR(first.distanceNm, 19.28, 0.02);
    EXPECT_NEAR(first.bearingMagDeg, 89.8 - 2, 0.1);
    EXPECT_EQ(first.elevationFt, 431);
    EXPECT_EQ(first.longestRunwayFt, 4100);
    EXPECT_EQ(first.runway, "07/25");
    EXPECT_EQ(first.frequency, "TWR 118.100");
    EXPECT_EQ(found[1].frequency, "");
    EXPECT_EQ(found[1].longestRunwayFt, std::nullopt);
    // The marked one stays marked when the aircraft comes nearer to another one.
    std::vector<NearAirport> later;
    findNearAirports(database_, atDegrees(50.9, 8), variation, {}, later);
    EXPECT_EQ(rowOfSame(found, 0, later), 1U);
    EXPECT_EQ(rowOfSame(found, 1, later), 0U);
    EXPECT_EQ(rowOfSame(found, 2, later), std::nullopt) << "there is no such row";
    later.pop_back();
    EXPECT_EQ(rowOfSame(found, 0, later), std::nullopt);
    findNearAirports(
        database_, atDegrees(50, 8), variation, {.count = 2, .heliports = true, .privateAirports = true}, found);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].ident + found[1].ident, "HELIOWN");
    EXPECT_EQ(found[0].elevationFt, std::nullopt);
}

TEST(NearestPage, TellsWhichRowIsUnderAFingerAndWhyThereIsNone) {
    const NearestLayout top = layOutNearestPage(800, 370, 20, {});
    const NearestLayout last = layOutNearestPage(800, 370, 20, {.first = 99});
    ASSERT_EQ(top.rows.size(), top.perPage);
    EXPECT_EQ(top.rowAt(top.rows[2].center()), 2U);
    EXPECT_EQ(top.rowAt(top.title.center()), std::nullopt);
    EXPECT_EQ(last.rowAt(last.rows[0].center()), 19U);
    EXPECT_EQ(last.rowAt({10, 369}), std::nullopt);

    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    CockpitData data = flying();
    data.databaseNotice = "NO CHARTS LOADED";
    RecordingCanvas canvas(800, 370);
    paintNearestPage(canvas, data, {}, colors);
    EXPECT_NE(canvas.findText("NO CHARTS LOADED"), nullptr);
    data.nearAirports = std::make_shared<std::vector<NearAirport>>();
    paintNearestPage(canvas, data, {}, colors);
    EXPECT_NE(canvas.findText("No airport near"), nullptr);
}

RunwayRecord runwayRecord(int lengthFt, int headingDeg, GeoPoint low = {}, GeoPoint high = {}) {
    RunwayRecord runway;
    runway.lengthFt = lengthFt;
    runway.ends.resize(2);
    runway.ends[0].magHeadingDeg = headingDeg;
    runway.ends[0].position = low;
    runway.ends[1].magHeadingDeg = headingDeg + 180;
    runway.ends[1].position = high;
    return runway;
}

TEST(AirportPicture, RunwaysAreToScaleWhereTheyAreOrSideBySide) {
    const Rect area{10, 20, 400, 300};
    AirportRecord airport;
    airport.magVariationDeg = 0;
    airport.runways = {runwayRecord(6076, 90, atDegrees(60, 179.99), atDegrees(60, -179.9767)),
        runwayRecord(3038, 0, atDegrees(60, 179.99), atDegrees(60.00833, 179.99))};
    for (const bool known : {true, false}) {
        if (!known) airport.runways[1].ends[0].position = {};
        const AirportPictureLayout layout = layOutAirport(airport, area, 14);
        ASSERT_EQ(layout.runways.size(), 2U);
        EXPECT_EQ(layout.inPlace, known);
        const auto& [east, north] = std::tie(layout.runways[0], layout.runways[1]);
        EXPECT_NEAR(east.from.y, east.to.y, 0.5);
        EXPECT_NEAR(north.from.x, north.to.x, 0.5);
        const double eastPx = east.to.x - east.from.x;
        EXPECT_NEAR(eastPx, 6076 * layout.pixelsPerFt, 0.01 * eastPx);
        EXPECT_NEAR(north.from.y - north.to.y, eastPx / 2, 0.01 * eastPx);
    }
    airport.runways.assign(8, runwayRecord(5000, 45));
    for (const RunwayShape& shape : layOutAirport(airport, area, 14).runways)
        for (const Point point : {shape.from, shape.to}) EXPECT_TRUE(area.contains(point));
    EXPECT_TRUE(layOutAirport(AirportRecord(), area, 14).runways.empty());
}

}}  // namespace korvel
