#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "geo/Units.h"
#include "map/MapPainter.h"
#include "map/layers/AircraftLayer.h"
#include "map/layers/MapFurniture.h"
#include "pages/AlarmBoxes.h"
#include "paint/B612Metrics.h"
#include "paint/ColorScheme.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "paint/TypeSizes.h"
#include "screen/PagePainter.h"

namespace korvel { namespace {

using Element = RecordingCanvas::Element;
using Kind = RecordingCanvas::Kind;

// A page painted with the day scheme.
class Page {
 public:
    Page(PageId page, const CockpitData& data, int rangeNm = 65, int upTrueDeg = 0, int width = 800, int height = 370)
        : colors_(scheme_), canvas_(width, height) {
        viewport_.layout(page, width, height);
        viewport_.chooseRange(rangeNm);
        PagePainter(colors_).paint(canvas_, page, {.data = data, .viewport = viewport_, .upTrueDeg = upTrueDeg});
    }

    const RecordingCanvas& canvas() const { return canvas_; }
    ColorValue color(std::string_view key) const { return scheme_.Color(key); }
    Point aircraft() const {
        return {static_cast<double>(viewport_.aircraftX()), static_cast<double>(viewport_.aircraftY())};
    }
    std::vector<Element> ofKind(Kind kind) const {
        std::vector<Element> found;
        for (const Element& element : canvas_.elements())
            if (element.kind == kind) found.push_back(element);
        return found;
    }
    // The aircraft's symbol: the polygon around its point that is filled with that colour.
    const Element* symbol(std::string_view colorKey) const {
        for (const Element& element : canvas_.elements())
            if (element.kind == Kind::Polygon && element.fill && element.fill->color == color(colorKey) &&
                element.area.contains(aircraft()))
                return &element;
        return nullptr;
    }

 private:
    ColorScheme scheme_;
    MapColorCache colors_;
    MapViewport viewport_;
    RecordingCanvas canvas_;
};

Point noseOf(const Element& symbol) { return symbol.points.front(); }

TEST(MapPainter, TheBackgroundComesFirstAndEverythingStaysInTheView) {
    for (const int range : kRangeStepsNm)
        for (const double lat : {0.0, 60.0, 88.7, -89.8}) {
            CockpitData data = flying();
            data.position = atDegrees(lat, 179.9);
            data.message = "Auto-zoom/view disabled for 30 secs.";
            const Page page(PageId::Map, data, range, 33);
            const Element& first = page.canvas().elements().front();
            EXPECT_EQ(first.fill->color, page.color("map.background"));
            EXPECT_EQ(first.area, (Rect{0, 0, 800, 370}));
            for (const Element& element : page.canvas().elements()) {
                if (element.kind == Kind::Circle) continue;  // the rings reach out to the sides
                EXPECT_GE(element.area.x, -1) << element.text;
                EXPECT_GE(element.area.y, -1) << element.text;
                EXPECT_LE(element.area.right(), 801) << element.text;
                EXPECT_LE(element.area.bottom(), 371) << element.text;
            }
        }
}

TEST(MapPainter, WithoutAnAircraftTheMapShowsWhatIsLookedFor) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    MapViewport viewport;
    viewport.layout(PageId::Map, 800, 370);
    RecordingCanvas canvas(800, 370);
    PagePainter(colors).paint(
        canvas, PageId::Map, {.data = {}, .viewport = viewport, .lookAt = atDegrees(42.2, -88.2)});
    EXPECT_NE(canvas.findText("N42\u00b000'"), nullptr);
    for (const char* absent : {"POSITION LOST", "Connecting to GPS...", "65 nm"}) {
        const Element* found = canvas.findText(absent);
        EXPECT_TRUE(found == nullptr || found->area.y < 60) << absent;  // the range stands in its corner
    }
}

TEST(MapPainter, RingsCarryTheirDistance) {
    const Page page(PageId::Map, flying(), 25);
    for (const auto& ring : {std::pair{"25 nm", 215.0}, std::pair{"12.5 nm", 107.5}}) {
        const char* const label = ring.first;
        const double radius = ring.second;
        const auto rings = page.ofKind(Kind::Circle);
        const bool drawn = std::any_of(rings.begin(), rings.end(), [&](const Element& circle) {
            return circle.points.front() == page.aircraft() && std::abs(circle.radius - radius) < 1e-9;
        });
        EXPECT_TRUE(drawn) << label;
        const auto texts = page.ofKind(Kind::Text);
        const bool labelled = std::any_of(texts.begin(), texts.end(), [&](const Element& text) {
            return text.text == label && std::abs(std::hypot(text.points.front().x - page.aircraft().x,
                                                      text.points.front().y - page.aircraft().y) -
                                                  radius) < 1e-6;
        });
        EXPECT_TRUE(labelled) << label;
    }
}

TEST(MapPainter, TheAircraftPointsUpOnTurningPagesAndAlongItsTrackOtherwise) {
    const Page turning(PageId::Map, flying(), 65, 86);
    ASSERT_NE(turning.symbol("hsi.airplane"), nullptr);
    EXPECT_NEAR(noseOf(*turning.symbol("hsi.airplane")).x, turning.aircraft().x, 1e-9);
    EXPECT_LT(noseOf(*turning.symbol("hsi.airplane")).y, turning.aircraft().y - 15);

    CockpitData east = flying();
    east.trackTrueDeg = 90;
    const Page northUp(PageId::NorthUp, east, 65, 86);
    ASSERT_NE(northUp.symbol("hsi.airplane"), nullptr);
    EXPECT_GT(noseOf(*northUp.symbol("hsi.airplane")).x, northUp.aircraft().x + 15);
    EXPECT_NEAR(noseOf(*northUp.symbol("hsi.airplane")).y, northUp.aircraft().y, 1e-9);

    east.trackTrueDeg.reset();  // no direction: no symbol that has one
    for (const PageId id : {PageId::NorthUp, PageId::Map}) EXPECT_EQ(Page(id, east).symbol("hsi.airplane"), nullptr);
}

TEST(MapPainter, ALostPositionNeverLooksAlive) {
    for (const PageId id : {PageId::Map, PageId::NorthUp}) {
        const Page page(id, lost(12), 65, 86);
        EXPECT_EQ(page.symbol("hsi.airplane"), nullptr);
        const Element* hollow = page.symbol("map.background");
        ASSERT_NE(hollow, nullptr);
        EXPECT_EQ(hollow->pen->color, page.color("hsi.airplane"));
        int crosses = 0;
        for (const Element& line : page.ofKind(Kind::Line))
            crosses += line.pen->color == page.color("map.obs.danger") && line.area.center() == page.aircraft() ? 1 : 0;
        EXPECT_EQ(crosses, 2);
        const Element* alarm = page.canvas().findText("POSITION LOST 12 s");
        ASSERT_NE(alarm, nullptr);
        EXPECT_EQ(alarm->style.color, page.color("map.obs.danger"));
        EXPECT_NE(page.canvas().findText("No gps signal!"), nullptr);
    }
    CockpitData searching = lost(125);
    searching.status = "COM5 4800\nLocating Satellites";
    const Page page(PageId::Map, searching);
    EXPECT_NE(page.canvas().findText("POSITION LOST 2 min 05 s"), nullptr);
    EXPECT_NE(page.canvas().findText("Locating Satellites"), nullptr);
    EXPECT_EQ(Page(PageId::Map, flying()).canvas().texts().find("LOST"), std::string::npos);
}

/// What stands on a map of that size.
struct LaidOut {
    LaidOut(const CockpitData& data, PageId page, int width, int height)
        : canvas(width, height),
          textPx(mapTextPx(width, height)),
          projection(
              viewportOf(page, width, height).projection(data.position ? *data.position : *data.lastPosition, 0)),
          boxes(metrics, canvas.area(), data.alarms, textPx, AlarmBoxes::Place::OverMap),
          furniture(layOutFurniture(metrics, canvas.area(), data, projection, 1000, textPx, {.alarms = boxes.areas})) {}

    static MapViewport viewportOf(PageId page, int width, int height) {
        MapViewport viewport;
        viewport.layout(page, width, height);
        return viewport;
    }
    /// Inside the map, and nothing on anything else or on the aircraft.
    void expectApart() const {
        std::vector<Rect> areas = furniture.areas();
        areas.push_back(aircraftArea(projection.aircraft(), textPx));
        for (std::size_t i = 0; i < areas.size(); ++i) {
            EXPECT_GE(areas[i].x, 0) << canvas.width() << " " << i;
            EXPECT_LE(areas[i].right(), canvas.width()) << canvas.width() << " " << i;
            EXPECT_LE(areas[i].bottom(), canvas.height()) << canvas.width() << " " << i;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(overlap(areas[i], areas[j])) << canvas.width() << ": " << i << " and " << j;
        }
    }

    B612Metrics metrics;
    RecordingCanvas canvas;
    double textPx;
    MapProjection projection;
    AlarmBoxes boxes;
    MapFurniture furniture;
};

TEST(MapFurniture, NothingStandsOnAnythingElseOrOnTheAircraft) {
    CockpitData crowded = lost(125);
    crowded.status = "COM5 4800\nWaiting for NMEA gprmc or gpvtg";
    crowded.databaseNotice = "CHARTS EXPIRED 2013-05-02";
    crowded.message = "Auto-zoom/view disabled for 30 secs.";
    const std::pair<int, int> sizes[] = {{480, 570}, {640, 300}, {800, 370}, {1280, 660}, {2176, 1500}, {600, 900}};
    for (const auto& [width, height] : sizes)
        for (const PageId id : {PageId::Map, PageId::NorthUp}) {
            const LaidOut map(crowded, id, width, height);
            EXPECT_EQ(map.furniture.areas().size(), 7U);
            map.expectApart();
        }
}

TEST(MapFurniture, AlarmsStandOnNothingElseAndAFingerFindsThem) {
    CockpitData data = flying();
    data.alarms = {"CHECK GEAR", "Arriving at WWWWWWWWWWW", "OFF COURSE", "one more"};
    data.message = "Auto-zoom/view disabled for 30 secs.";
    const std::pair<int, int> sizes[] = {{640, 300}, {800, 370}, {1280, 660}, {480, 570}};
    for (const auto& [width, height] : sizes)
        for (const PageId id : {PageId::Map, PageId::NorthUp}) {
            const LaidOut map(data, id, width, height);
            ASSERT_EQ(map.furniture.alarms.size(), kMostAlarmBoxes);
            EXPECT_EQ(map.boxes.alarmAt(map.furniture.alarms[1].center()), 1U);
            EXPECT_EQ(map.boxes.alarmAt(map.projection.aircraft()), std::nullopt);
            map.expectApart();
        }
}

TEST(AlarmBoxes, FillAStripBelowThePageRowByRow) {
    const std::vector<std::string> alarms = {"CHECK GEAR", "OFF COURSE", "Arriving at KBFI"};
    double before = 0;
    for (const int width : {1280, 480, 320}) {
        const RecordingCanvas canvas(width, 400);
        const AlarmBoxes boxes(B612Metrics(), canvas.area(), alarms, 14, AlarmBoxes::Place::Strip);
        const Rect strip{0, 400 - boxes.stripHeight, static_cast<double>(width), boxes.stripHeight};
        for (std::size_t i = 0; i < boxes.areas.size(); ++i) {
            const Rect& area = boxes.areas[i];
            EXPECT_EQ(boxes.alarmAt(area.center()), i);
            EXPECT_TRUE(area.x >= 0 && area.y > strip.y && area.right() <= strip.right() && area.bottom() < 400);
            EXPECT_FALSE(i > 0 && overlap(area, boxes.areas[i - 1]));
        }
        EXPECT_GT(boxes.stripHeight, before) << width;
        before = boxes.stripHeight;
    }
    EXPECT_EQ(AlarmBoxes(B612Metrics(), {0, 0, 800, 400}, {}, 14, AlarmBoxes::Place::Strip).stripHeight, 0);
}

TEST(MapFurniture, TheScaleBarIsARoundLengthInTheUnitInForce) {
    const std::tuple<int, double, double> cases[] = {{0, 31.4, 20}, {0, 50, 50}, {0, 9.9, 5}, {0, 0.21, 0.2},
        {0, 199.99, 100}, {1, 31.4, 20}, {2, 31.4, 50}, {2, 0.4, 0.5}};
    for (const auto& [unit, longestNm, shown] : cases) {
        const DistanceUnit shownIn = distanceUnitOf(unit);
        EXPECT_NEAR(ConvertDistance(roundLengthNm(longestNm, shownIn), shownIn), shown, 1e-9) << longestNm;
    }
    RecordingCanvas canvas(800, 370);
    MapViewport viewport;
    viewport.layout(PageId::Map, 800, 370);
    const MapProjection projection = viewport.projection(*flying().position, 0);
    const ScaleBar scale = layOutFurniture(B612Metrics(), canvas.area(), flying(), projection, 65, 14).scale;
    EXPECT_EQ(scale.text, "20 nm");
    EXPECT_NEAR(scale.bar.to.x - scale.bar.from.x, 20 * projection.pixelsPerNm(), 1e-9);
}

TEST(MapFurniture, TheNorthArrowPointsNorth) {
    const Page page(PageId::Map, flying(), 65, 90);  // east is up, north is to the left
    const auto polygons = page.ofKind(Kind::Polygon);
    const auto arrow = std::find_if(polygons.begin(), polygons.end(), [&](const Element& each) {
        return each.fill && each.fill->color == page.color("map.info.text") && each.area.right() < 60;
    });
    ASSERT_NE(arrow, polygons.end());
    const double middle = (arrow->area.y + arrow->area.bottom()) / 2;
    EXPECT_NEAR(arrow->points.front().y, middle, 1e-6);
    EXPECT_NEAR(arrow->points.front().x, arrow->area.x, 1e-6);
}

}}  // namespace korvel
