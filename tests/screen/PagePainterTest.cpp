#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "config/DataFileSearch.h"
#include "map/layers/AircraftLayer.h"
#include "map/layers/MapFurniture.h"
#include "pages/HsiPage.h"
#include "paint/B612Metrics.h"
#include "paint/Clip.h"
#include "paint/ColorScheme.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "paint/TypeSizes.h"
#include "screen/PagePainter.h"

namespace korvel { namespace {

using Element = RecordingCanvas::Element;
using Kind = RecordingCanvas::Kind;

MapViewport viewportOf(PageId page, int width, int height) {
    MapViewport viewport;
    viewport.layout(page, width, height);
    return viewport;
}

// A page painted with the day scheme, unless a name says another one.
struct PaintedPage {
    RecordingCanvas canvas;

    PaintedPage(PageId page, const CockpitData& data, std::optional<GeoPoint> lookAt = {}, std::string_view name = {},
        std::optional<GeoPoint> openAt = {})
        : canvas(800, 370) {
        ColorScheme scheme;
        scheme.load(name, DataFileSearch({}));
        const MapColorCache colors(scheme);
        const MapViewport viewport = viewportOf(page, 800, 370);
        PagePainter(colors).paint(canvas, page,
            {.data = data,
                .viewport = viewport,
                .lookAt = lookAt,
                .openAt = openAt,
                .attitude = {.picture = {}, .alive = false, .notice = "No module"}});
    }
    bool has(std::string_view text) const { return canvas.findText(text) != nullptr; }
};

// The ground on which a text stands: what was filled last below its middle.
ColorValue groundOf(const std::vector<Element>& elements, std::size_t text, ColorValue page) {
    const Point middle = elements[text].area.center();
    for (std::size_t i = text; i-- > 0;) {
        const Element& below = elements[i];
        if ((below.kind == Kind::Rect || below.kind == Kind::Circle) && below.fill && below.area.contains(middle))
            return blended(below.fill->color, page, 1 - below.fill->opacity);
    }
    return page;
}

TEST(PagePainter, NothingIsBrighterThanItsTextAtNight) {
    CockpitData data = navigating();
    data.alarms = {{"CHECK GEAR"}, {"OFF COURSE"}, {"Arriving at KBFI", AlarmUrgency::Notice}};
    data.simulated = true;
    for (const CockpitData& each : {data, flying(), CockpitData{}})
        for (int page = 0; page < kPageCount; ++page) {
            const PaintedPage night(PageId{page}, each, {}, nightSchemeName());
            const auto& elements = night.canvas.elements();
            for (std::size_t i = 0; i < elements.size(); ++i) {
                if (elements[i].kind != Kind::Text) continue;
                EXPECT_LT(lightOf(groundOf(elements, i, Rgb(0, 0, 0))), lightOf(elements[i].style.color))
                    << page << " " << elements[i].text;
            }
        }
}

TEST(PagePainter, EveryPageShowsSomethingInFlight) {
    for (int page = 0; page < kPageCount; ++page)
        EXPECT_NE(PaintedPage(PageId{page}, flying()).canvas.texts(), "") << page;
}

TEST(PagePainter, WhatIsSaidStandsOnEveryPage) {
    for (CockpitData data : {flying(), CockpitData{}, lost(20)}) {
        data.message = "Two lines\nare said";
        for (int page = 0; page < kPageCount; ++page)
            EXPECT_TRUE(PaintedPage(PageId{page}, data).has("are said")) << page;
    }
}

TEST(PagePainter, WhatIsSaidCutsNoFigureOfATableInTwo) {
    CockpitData data = navigating();
    data.message = "Next: XFLD";
    for (const PageId id : {PageId::FlightPlan, PageId::NearestAirport}) {
        const PaintedPage page(id, data);
        const auto& elements = page.canvas.elements();
        const auto said = std::ranges::find(elements, data.message, &Element::text);
        ASSERT_NE(said, elements.end());
        const Rect band = std::prev(said)->area;
        for (auto each = elements.begin(); each != said; ++each)
            EXPECT_FALSE(each->kind == Kind::Text && overlap(each->area, band) &&
                         (each->area.y < band.y || each->area.right() > band.right()))
                << each->text;
        EXPECT_EQ(band.width, page.canvas.width());
    }
}

TEST(PagePainter, WithoutAnAircraftTheMapShowsWhatIsLookedFor) {
    const PaintedPage page(PageId::Map, {}, atDegrees(42.2, -88.2));
    EXPECT_TRUE(page.has("N42\u00b000'"));
    for (const char* absent : {"POSITION LOST", "Connecting to GPS...", "65 nm"}) {
        const Element* found = page.canvas.findText(absent);
        EXPECT_TRUE(found == nullptr || found->area.y < 60) << absent;  // the range stands in its corner
    }
    EXPECT_TRUE(PaintedPage(PageId::Hsi, {}, atDegrees(42.2, -88.2)).has("Connecting to GPS..."));
}

TEST(PagePainter, TheMapOpensBeforeAnyAircraftWasSeen) {
    const GeoPoint home = atDegrees(42.2, -88.2);
    CockpitData silent;
    silent.status = "No Gps Rcvr Activity";
    for (const PageId page : {PageId::Map, PageId::MapHsi, PageId::NorthUp}) {
        const PaintedPage opened(page, silent, {}, {}, home);
        EXPECT_TRUE(opened.has("Connecting to GPS...") && opened.has("65 nm"));
        EXPECT_FALSE(opened.has("POSITION LOST"));
        EXPECT_FALSE(PaintedPage(page, silent, atDegrees(42, -88), {}, home).has("Connecting to GPS..."))
            << "what is looked at is not covered";
        EXPECT_TRUE(PaintedPage(page, lost(20), {}, {}, home).has("POSITION LOST 20 s"));
    }
    EXPECT_FALSE(PaintedPage(PageId::Hsi, silent, {}, {}, home).has("65 nm"));
}

TEST(PagePainter, TheApproachStandsWhereOneFliesByThePage) {
    for (const PageId page : {PageId::Map, PageId::MapHsi, PageId::NorthUp, PageId::Hsi})
        EXPECT_TRUE(PaintedPage(page, approaching()).has("APPR"));
    EXPECT_FALSE(PaintedPage(PageId::Map, approaching(), atDegrees(48, 11)).has("APPR"));
    EXPECT_TRUE(PaintedPage(PageId::Hsi, approaching()).has("RW05"));
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

    /// Inside the map, and nothing on anything else or on the aircraft.
    void expectApart() const {
        std::vector<Rect> areas = furniture.areas();
        areas.push_back(aircraftArea(projection.aircraft(), textPx));
        for (std::size_t i = 0; i < areas.size(); ++i) {
            const Rect& area = areas[i];
            EXPECT_TRUE(area.x >= 0 && area.right() <= canvas.width() && area.bottom() <= canvas.height())
                << canvas.width() << " " << i;
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
    CockpitData alarmed = flying();
    alarmed.alarms = {{"CHECK GEAR"}, {"Arriving at WWWWWWWWWWW"}, {"OFF COURSE"}, {"one more"}};
    alarmed.message = crowded.message;
    const std::pair<int, int> sizes[] = {{480, 570}, {640, 300}, {800, 370}, {1280, 660}, {2176, 1500}, {600, 900}};
    for (const auto& [width, height] : sizes)
        for (const PageId id : {PageId::Map, PageId::NorthUp}) {
            const LaidOut map(crowded, id, width, height);
            EXPECT_EQ(map.furniture.areas().size(), 7U);
            map.expectApart();
            const LaidOut boxed(alarmed, id, width, height);
            ASSERT_EQ(boxed.furniture.alarms.size(), kMostAlarmBoxes);
            EXPECT_EQ(boxed.boxes.alarmAt(boxed.furniture.alarms[1].center()), 1U) << "under a finger";
            EXPECT_EQ(boxed.boxes.alarmAt(boxed.projection.aircraft()), std::nullopt);
            boxed.expectApart();
        }
}

TEST(HsiPage, OverTheMapTheNumbersAreFreeOfEachOtherAndOfTheCorners) {
    CockpitData data = navigating();
    data.simulated = true;
    data.databaseNotice = "CHARTS EXPIRED 2013-05-02";
    data.fullScaleNm = 1.25;
    const std::pair<int, int> sizes[] = {{480, 520}, {600, 760}, {640, 290}, {800, 370}, {1280, 660}, {1420, 540}};
    for (const auto& [width, height] : sizes)
        for (int track = 1; track < 360; track += 10) {
            data.trackMagDeg = track;
            MapViewport viewport;
            viewport.layout(PageId::MapHsi, width, height);
            const B612Metrics metrics;
            const Rect page{0, 0, static_cast<double>(width), static_cast<double>(height)};
            const double textPx = mapTextPx(width, height);
            const std::vector<Rect> lower = lowerCorners(metrics, page, data, textPx);
            std::vector<Rect> boxes = hsiLabelsOverMap(metrics, page, data, {viewport.aircraft(), lower});
            ASSERT_GT(boxes.size(), 14U);
            boxes.resize(14);  // heading, numbers and full scale; the needle crosses none of them
            for (Rect& box : boxes) box = grown(box, -3);  // names on the map stay farther away
            const MapFurniture corners =
                layOutFurniture(metrics, page, data, viewport.projection(*data.position, 0), 4, textPx);
            for (std::size_t i = 0; i < boxes.size(); ++i) {
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_FALSE(overlap(boxes[i], boxes[j])) << width << " " << track << ": " << i << " " << j;
                for (const Rect& corner : corners.areas())
                    EXPECT_FALSE(overlap(boxes[i], corner)) << width << " " << track << ": " << i;
            }
        }
}

}}  // namespace korvel
