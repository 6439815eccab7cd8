#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "map/DayMap.h"
#include "map/MapLegend.h"
#include "map/layers/PlaceLayout.h"
#include "navdb/TestDatabase.h"
#include "navdb/file/DatabaseTables.h"
#include "paint/Clip.h"
#include "paint/LabelSpace.h"
#include "paint/TypeSizes.h"

namespace korvel { namespace {

using Element = RecordingCanvas::Element;
using Kind = RecordingCanvas::Kind;

/// A map of 800 by 400 pixels, north up, on which places stand where they are put.
struct PlacedMap : DayMap {
    CockpitData data = flying();
    PlaceSet set;

    explicit PlacedMap(int rangeNm = 8) : DayMap(PageId::NorthUp, 800, 400, rangeNm) { data.trackTrueDeg = 0; }
    using DayMap::ground;
    GeoPoint ground(Point at) const { return ground(data, at); }
    MapPlace& add(std::string_view ident, Point at, double rank = 0, PlaceClass placeClass = PlaceClass::TowerAirport) {
        MapPlace& place = set.places.emplace_back();
        place.placeClass = placeClass;
        place.rank = rank;
        place.place.kind = isVor(placeClass) ? kVorKind : kAirportKind;
        place.place.flags = kAirportTower | kAirportHardSurface;
        if (isVor(placeClass)) place.place.flags = kUsageBoth;
        place.place.ident.assign(ident);
        place.place.position = ground(at);
        return place;
    }
    const std::vector<Element>& paint() { return DayMap::paint(data, set).elements(); }
    /// Without the room for letters below the line.
    Rect lettersOf(const Element& text) const {
        Rect area = text.area;
        area.height = canvas.textMeasure().measure(text.text, text.style.font).capHeight;
        return area;
    }
};

bool isName(const Element& element, std::string_view beginning) {
    return element.kind == Kind::Text && element.text.starts_with(beginning);
}

TEST(MapLayers, WordsStandOverTheLayerThatTheyBelongTo) {
    const auto layers = mapLayers();
    for (const MapLayer& row : layers) {
        EXPECT_LE(row.fromRangeNm, row.toRangeNm) << row.name;
        const auto first = std::ranges::find(layers, row.make, &MapLayer::make);
        EXPECT_TRUE(first->paint == &Layer::paint) << row.name << " would not be laid out";
        EXPECT_TRUE(first->fromRangeNm <= row.fromRangeNm && first->toRangeNm >= row.toRangeNm) << row.name;
    }
}

TEST(CompassRoseLayer, TheRosesOfTheLegPointToMagneticNorth) {
    PlacedMap map(kRosesToNm);
    map.add("ONE", {600, 100}, 0, PlaceClass::BothVor).variationDeg = 20;
    map.add("AWAY", {150, 300}, 0, PlaceClass::BothVor).variationDeg = -20;
    map.add("NONE", {150, 100}, 0, PlaceClass::BothVor);
    map.add("UNUSED", {400, 350}, 0, PlaceClass::BothVor).variationDeg = 20;
    map.data.legStart = map.ground({600, 100});
    map.data.activeWaypoint = map.ground({150, 300});
    const auto roses = [&map] {
        std::vector<double> found;  // where magnetic north is from the centre of each, pixels to the right
        for (const auto& circle : map.paint()) {
            if (circle.kind != Kind::Circle || circle.radius < 44 || circle.points[0] == Point{400, 200}) continue;
            for (const auto& line : map.canvas.elements())
                if (line.kind == Kind::Line && line.points.front() == circle.points[0])
                    found.push_back(line.points.back().x - line.points.front().x);
        }
        return found;
    };
    const std::vector<double> found = roses();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_GT(found[0], 10);
    EXPECT_LT(found[1], -10);
    map.viewport.chooseRange(kRosesToNm + 15);
    EXPECT_TRUE(roses().empty());
}

TEST(PlaceLayer, NamesKeepApartAndRunwaysCarryTheirNumbers) {
    PlacedMap map;
    auto details = std::make_shared<PlaceDetails>();
    details->runways = {{.ends = {map.ground({150, 100}), map.ground({250, 100})}, .ids = {"09", "27"}}};
    map.add("FIELD", {200, 100}, 9000).details = details;
    map.add("STRIP", {600, 100}, 800).place.pastDate = true;
    for (int i = 0; i < 30; ++i) map.add(numbered("N", 100 + i), {596.0 + i, 104.0 - i}, 700 - i);  // too many
    map.paint();
    ASSERT_NE(map.canvas.findText("(STRIP)"), nullptr) << "out of date";
    const auto *nine = map.canvas.findText("09"), *other = map.canvas.findText("27");
    ASSERT_TRUE(nine && other);
    EXPECT_LT(nine->points.front().x, 150);
    EXPECT_GT(other->points.front().x, 250);
    std::vector<Rect> names;
    for (const auto& element : map.canvas.elements())
        if (isName(element, "N1")) names.push_back(map.lettersOf(element));
    EXPECT_GE(names.size(), 2U);
    EXPECT_LT(names.size(), 30U);
    for (std::size_t i = 0; i < names.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(overlap(names[i], names[j])) << i << " and " << j;
}

TEST(PlaceLayer, PavedIsFilledAndTheSizeTellsTheRunway) {
    const double usual = symbolRadius(PlaceClass::HardAirport, mapTextPx(800, 400));
    const double soft = symbolRadius(PlaceClass::SoftAirport, mapTextPx(800, 400));
    const struct {
        PlaceClass placeClass;
        unsigned flags;
        int longestFt;
        bool filled;
        double radius;
    } cases[] = {{PlaceClass::HardAirport, 0, 0, true, usual}, {PlaceClass::HardAirport, 0, 6000, true, 1.25 * usual},
        {PlaceClass::TowerAirport, 0, 2499, true, 0.8 * usual}, {PlaceClass::SoftAirport, 0, 2500, false, soft},
        {PlaceClass::HardAirport, kAirportPrivate, 6000, false, 0.8 * usual}};
    for (const bool icons : {false, true})
        for (const auto& each : cases) {
            PlacedMap map(40);
            map.set.options.icons = icons;
            map.set.options.privateAirports = true;
            MapPlace& place = map.add("X", {200, 100}, 9000, each.placeClass);
            place.place.flags = each.flags;
            auto details = std::make_shared<PlaceDetails>();
            details->longestRunwayFt = each.longestFt;
            place.details = details;
            const auto& all = map.paint();
            const auto circle = std::ranges::find_if(
                all, [&](const Element& element) { return element.kind == Kind::Circle && element.radius < 12; });
            ASSERT_NE(circle, all.end());
            EXPECT_NEAR(circle->radius, each.radius, 0.01) << each.longestFt;
            const bool isFilled = circle->fill->color == circle->pen->color;
            EXPECT_EQ(isFilled, each.filled || (icons && each.placeClass != PlaceClass::SoftAirport));
        }
}

TEST(PlaceLayer, TheGridIsNamedWherePlacesLeaveRoom) {
    PlacedMap map;
    const auto whereIsTheGridNamed = [&map] {
        for (const auto& element : map.paint())
            if (isName(element, "N") && element.text.ends_with("'")) return element.area;
        return Rect{};
    };
    const Rect before = whereIsTheGridNamed();
    ASSERT_GT(before.width, 0);
    map.add("FIELD", before.center(), 9000);
    const Rect after = whereIsTheGridNamed();
    ASSERT_GT(after.width, 0) << "there is more room along the line";
    EXPECT_FALSE(grown(after, symbolRadius(PlaceClass::TowerAirport, 14)).contains(before.center()));
}

TEST(PlaceLayer, NamesKeepOffTheLegOrLieOverIt) {
    PlacedMap map;
    map.data.legStart = map.ground({-100, 100});
    map.data.activeWaypoint = map.ground({900, 104});
    for (int i = 0; i < 5; ++i) map.add(numbered("N", 100 + i), {100.0 + 120 * i, 98.0 + 2 * i}, 700);
    const auto crossed = [&map] {
        int names = 0;
        int count = 0;
        for (const auto& element : map.paint()) {
            EXPECT_TRUE(names == 0 || element.kind != Kind::Polyline) << "half a name is another one";
            if (!isName(element, "N1")) continue;
            ++names;
            const Rect letters = map.lettersOf(element);
            count += letters.y < 104 && letters.bottom() > 100 ? 1 : 0;
        }
        EXPECT_EQ(names, 5);
        return count;
    };
    EXPECT_EQ(crossed(), 0);
    map.data.legStart.reset();
    EXPECT_EQ(crossed(), 5) << "beside their symbols";
}

TEST(PlanLayer, APlaceOfThePlanIsNamedOnce) {
    PlacedMap map(15);
    map.add("EDAA", {550, 120});
    map.add("EDBB", {250, 120});
    const auto named = [&map](std::string_view ident) {
        return std::ranges::count_if(map.paint(), [ident](const auto& element) { return isName(element, ident); });
    };
    EXPECT_EQ(named("EDAA") + named("EDBB"), 2);
    map.data.activeKey = "a.EDAA";
    map.data.activeWaypoint = map.ground({550, 120});
    map.data.pathAltitudeFt = 3000;
    EXPECT_EQ(named("EDAA 3000 ft"), 1);
    EXPECT_EQ(named("EDAA"), 1) << "by the plan alone";
    EXPECT_EQ(named("EDBB"), 1);
}

TEST(PlanLayer, ActiveLegStandsOut) {
    DayMap map(PageId::Map, 800, 480, 100);
    CockpitData data = flying();
    const auto flyTo = [&data](std::size_t row) {
        const auto plan = planOf(4, row);
        data.plan = plan;
        data.legStart = plan->rows[row - 1].position;
        data.activeWaypoint = plan->rows[row].position;
    };
    const auto pens = [&] {
        EXPECT_NE(map.paint(data).findText("W1"), nullptr);
        std::string found;
        for (const auto& element : map.canvas.elements())
            if (element.kind == Kind::Polyline) {
                const bool plan = element.pen->color == map.scheme.Color("map.flightplan");
                found += std::to_string(std::lround(element.pen->width)) + (plan ? "p" : "-") +
                         (element.pen->style == PenStyle::Dash ? "d " : " ");
            }
        return found;
    };
    flyTo(1);
    EXPECT_EQ(pens(), "3p 3p 9- 5p 2- ") << "two legs ahead, then the active one with its rim";
    flyTo(2);
    EXPECT_EQ(pens(), "2-d 3p 9- 5p 2- ");
    data.directLeg = true;
    data.legStart = data.position;
    EXPECT_EQ(pens(), "2-d 3p 3p 9- 5p 2- ");
    data.obsCourseMagDeg = 90;
    data.desiredTrackTrueDeg = 90;
    EXPECT_EQ(pens(), "2-d 3p 3p 3pd 9- 5p 2- ");
}

TEST(PlanLayer, ADirectToIsCalledAsOnTheChart) {
    DayMap map(PageId::Map, 800, 480, 65);
    CockpitData data = flying();
    data.directLeg = true;
    data.legStart = data.position;
    data.activeWaypoint = GeoPoint{data.position->lat + 0.004, data.position->lon};
    data.activeName = "Renton Muni";
    for (const auto& [key, label] : {std::pair{"a.KRNT", "KRNT"}, {"", "Renton Muni"}}) {
        data.activeKey = key;
        EXPECT_NE(map.paint(data).findText(label), nullptr) << label;
    }
}

TEST(MapLegend, EachRowShowsWhatTheMapDraws) {
    const DayMap day(PageId::NorthUp, 400, 300, 8);
    const double rowPx = 34;
    RecordingCanvas canvas(400, rowPx * static_cast<double>(mapLegendRows()));
    paintMapLegend(canvas, day.colors, 16);
    std::vector<std::string> pictures(mapLegendRows());
    for (const RecordingCanvas::Element& element : canvas.elements()) {
        const auto row = static_cast<std::size_t>(element.area.center().y / rowPx);
        if (element.area.height > rowPx || row >= pictures.size() || element.area.x > 90) continue;
        EXPECT_GE(element.area.y, rowPx * static_cast<double>(row) - 1) << "a symbol hangs into the next row: " << row;
        EXPECT_LE(element.area.bottom(), rowPx * static_cast<double>(row + 1) + 1) << row;
        pictures[row] +=
            std::to_string(static_cast<int>(element.kind)) + ':' + std::to_string(element.points.size()) + ':' +
            std::to_string(element.radius) + ':' + element.text +
            (element.pen ? std::to_string(element.pen->color) + std::to_string(static_cast<int>(element.pen->style)) +
                               std::to_string(element.pen->width)
                         : "") +
            (element.fill ? std::to_string(element.fill->color) : "") + ' ';
    }
    for (const RecordingCanvas::Element& element : canvas.elements())
        EXPECT_LE(element.area.right(), 400) << element.text;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        EXPECT_FALSE(pictures[i].empty()) << i;
        for (std::size_t other = 0; other < i; ++other)
            EXPECT_NE(pictures[i], pictures[other]) << "rows " << other << " and " << i << " look alike";
    }
}

}}  // namespace korvel
