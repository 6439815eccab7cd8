#include <tuple>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "config/texts/GroundTexts.h"
#include "navdb/records/AirportRecord.h"
#include "pages/AirportLayout.h"
#include "pages/AirspacePage.h"
#include "pages/NearestPage.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

TEST(NearestPage, TellsWhichRowIsUnderAFingerAndWhyThereIsNone) {
    const RowListLayout top = layOutRowList(800, 370, 20, {});
    const RowListLayout last = layOutRowList(800, 370, 20, {.first = 99});
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
    data.nearestFilter.hardOnly = true;
    paintNearestPage(canvas, data, {}, colors);
    EXPECT_NE(canvas.findText("No airport near is like that"), nullptr);
}

TEST(NearestPage, TimeAndGlideAreOfAPositionAndAnOldListSaysHowOldItIs) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    RecordingCanvas canvas(800, 370);
    const auto shows = [&](const CockpitData& data, std::string_view words) {
        canvas.clear();
        paintNearestPage(canvas, data, {}, colors);
        return canvas.findText(words) != nullptr;
    };
    CockpitData data = navigating();
    NearAirport near = data.nearAirports->front();
    near.position = atDegrees(48.4, 11.7861);  // 2.8 miles; the glide takes 1900 ft
    data.nearAirports = std::make_shared<const std::vector<NearAirport>>(1, near);
    EXPECT_FALSE(shows(data, "GLIDE")) << "of no known elevation";
    near.elevationFt = 3500;
    data.nearAirports = std::make_shared<const std::vector<NearAirport>>(1, near);
    EXPECT_TRUE(shows(data, "GLIDE"));
    EXPECT_TRUE(shows(data, "0:06"));
    data.wind = WindView{.wind = {0, 30}, .entered = true};
    EXPECT_FALSE(shows(data, "GLIDE")) << "into the wind";
    data.wind.reset();
    data.aircraft.reset();
    EXPECT_FALSE(shows(data, "GLIDE"));
    EXPECT_TRUE(shows(data, "all   1\u20131 / 1"));
    CockpitData old = lost(34);
    old.aircraft.emplace();
    old.formerNearAirports = data.nearAirports;
    EXPECT_TRUE(shows(old, "34 s old   all   1\u20131 / 1"));
    EXPECT_FALSE(shows(old, "GLIDE") || shows(old, "0:06"));
    EXPECT_NE(canvas.findText("EDMO")->style.color, colors[ColorKey::HsiNumeral]);
}

TEST(AirspacePage, SaysHowEachLiesAndWhyThereIsNone) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    CockpitData data = flying();
    RecordingCanvas canvas(800, 370);
    paintAirspacePage(canvas, data, {}, colors);
    EXPECT_NE(canvas.findText(text(kGroundTexts.noAirspaces)), nullptr);
    AirspaceList list(30, {.name = "TOWN", .airspaceClass = "CTR", .limits = "GND / 25", .frequency = "118.1"});
    list[0].kind = AirspaceKind::D;
    list[1] = {.name = "SOON",
        .airspaceClass = "R",
        .limits = "",
        .frequency = "",
        .relation = AirspaceRelation::Ahead,
        .seconds = 45,
        .distanceNm = 1.5};
    data.airspaces = std::make_shared<const AirspaceList>(list);
    canvas.clear();
    paintAirspacePage(canvas, data, {}, colors);
    for (const char* words : {"TOWN", "CTR", "GND / 25", "118.1", "INSIDE", "AHEAD", "in 45 s  1.5 nm"})
        EXPECT_NE(canvas.findText(words), nullptr) << words;
    EXPECT_EQ(canvas.findText("INSIDE")->style.color, colors[ColorKey::MapObstacleDanger]) << "it asks for a clearance";
    canvas.clear();
    paintAirspacePage(canvas, data, {.first = 2}, colors);
    EXPECT_EQ(canvas.findText("SOON"), nullptr);
    EXPECT_NE(canvas.findText("INSIDE")->style.color, colors[ColorKey::MapObstacleDanger]) << "it asks for nothing";
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
