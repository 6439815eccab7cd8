#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "cockpit/PlaceSet.h"
#include "map/DayMap.h"
#include "navdb/file/DatabaseTables.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

using Kind = RecordingCanvas::Kind;

/// A map of 800 by 400 pixels, north up, on which places stand where they are put.
struct PlacedMap {
    DayMap map;
    MapViewport viewport;
    CockpitData data = flying();
    PlaceSet places;

    explicit PlacedMap(int rangeNm) {
        viewport.layout(PageId::NorthUp, 800, 400);
        viewport.chooseRange(rangeNm);
        data.trackTrueDeg = 0;
    }
    GeoPoint ground(Point at) const { return viewport.projection(*data.position, 0).unproject(at); }
    MapPlace& add(std::string_view ident, PlaceClass placeClass, Point at) {
        MapPlace& place = places.places.emplace_back();
        place.placeClass = placeClass;
        place.place.kind = isVor(placeClass) ? kVorKind : kAirportKind;
        place.place.flags = kAirportTower | kAirportHardSurface;
        if (isVor(placeClass)) place.place.flags = kUsageBoth;
        place.place.ident.assign(ident);
        place.place.position = ground(at);
        return place;
    }
    RecordingCanvas& paint() {
        canvas.clear();
        MapContent content = map.content(data, viewport, canvas.area());
        content.places = &places;
        paintMap(canvas, content);
        return canvas;
    }
    RecordingCanvas canvas{800, 400};
};

TEST(MapLayers, WordsStandOverTheLayerThatTheyBelongTo) {
    const auto layers = mapLayers();
    for (const MapLayer& row : layers) {
        EXPECT_LE(row.fromRangeNm, row.toRangeNm) << row.name;
        const auto first = std::ranges::find(layers, row.make, &MapLayer::make);
        EXPECT_TRUE(first->paint == &Layer::paint) << row.name << " would not be laid out";
        EXPECT_TRUE(first->fromRangeNm <= row.fromRangeNm && first->toRangeNm >= row.toRangeNm) << row.name;
    }
}

TEST(CompassRoseLayer, RosesPointToMagneticNorthAndNeverMeet) {
    PlacedMap map(kRosesToNm);
    map.add("ONE", PlaceClass::BothVor, {600, 100}).variationDeg = 20;
    map.add("TWO", PlaceClass::BothVor, {620, 100}).variationDeg = 20;
    map.add("AWAY", PlaceClass::BothVor, {150, 300}).variationDeg = -20;
    map.add("NONE", PlaceClass::BothVor, {150, 100});
    const auto roses = [](const RecordingCanvas& canvas) {
        std::vector<double> found;  // where magnetic north is from the centre of each, pixels to the right
        for (const auto& circle : canvas.elements()) {
            if (circle.kind != Kind::Circle || circle.radius < 44 || circle.points[0] == Point{400, 200}) continue;
            for (const auto& line : canvas.elements())
                if (line.kind == Kind::Line && line.points.front() == circle.points[0])
                    found.push_back(line.points.back().x - line.points.front().x);
        }
        return found;
    };
    const std::vector<double> found = roses(map.paint());
    ASSERT_EQ(found.size(), 2U);
    EXPECT_GT(found[0], 10);
    EXPECT_LT(found[1], -10);
    map.viewport.chooseRange(kRosesToNm + 15);
    EXPECT_TRUE(roses(map.paint()).empty());
}

TEST(PlanLayer, APlaceOfThePlanIsNamedOnce) {
    PlacedMap map(15);
    map.add("EDAA", PlaceClass::TowerAirport, {550, 120});
    map.add("EDBB", PlaceClass::TowerAirport, {250, 120});
    const auto named = [&map](std::string_view ident) {
        return std::ranges::count_if(map.paint().elements(),
            [ident](const auto& element) { return element.kind == Kind::Text && element.text.starts_with(ident); });
    };
    EXPECT_EQ(named("EDAA") + named("EDBB"), 2);
    map.data.activeKey = "a.EDAA";
    map.data.activeWaypoint = map.ground({550, 120});
    map.data.pathAltitudeFt = 3000;
    EXPECT_EQ(named("EDAA 3000 ft"), 1);
    EXPECT_EQ(named("EDAA"), 1) << "by the plan alone";
    EXPECT_EQ(named("EDBB"), 1);
}

}}  // namespace korvel
