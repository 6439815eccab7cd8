#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "config/DataFileSearch.h"
#include "pages/SatellitePage.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "screen/PagePainter.h"

namespace korvel { namespace {

using Element = RecordingCanvas::Element;
using Kind = RecordingCanvas::Kind;

// A page painted with the day scheme, unless a name says another one.
struct PaintedPage {
    RecordingCanvas canvas;

    PaintedPage(PageId page, const CockpitData& data, int width = 800, int height = 370, std::string_view name = {})
        : canvas(width, height) {
        ColorScheme scheme;
        scheme.load(name, DataFileSearch({}));
        const MapColorCache colors(scheme);
        MapViewport viewport;
        viewport.layout(page, width, height);
        PagePainter(colors).paint(canvas, page, {.data = data, .viewport = viewport, .attitude = attitude});
    }
    AttitudeView attitude{.picture = {}, .alive = false, .notice = "No attitude module\nput one here"};
};

std::string textsOf(PageId page, const CockpitData& data) { return PaintedPage(page, data).canvas.texts(); }

TEST(StatusScreen, SaysHowFarTheConnectionIs) {
    CockpitData data;
    data.status = "COM5 4800\nNo Gps Rcvr Activity";
    EXPECT_EQ(textsOf(PageId::Map, data),
        "COM5 4800\nNo Gps Rcvr Activity\n"
        "Connecting to GPS...\nSelect Options.Simulator menu to test.\n");
    data.receiverActive = true;
    data.status = "Locating Satellites";
    EXPECT_EQ(textsOf(PageId::NorthUp, data), "Locating Satellites\n");
    EXPECT_EQ(textsOf(PageId::Hsi, {}), "Connecting to GPS...\nSelect Options.Simulator menu to test.\n");
}

TEST(StatusScreen, FitsAnyWindow) {
    CockpitData data;
    data.status = "COM5:,38400,N,8,1\nThe port is being used by some other program";
    for (const int width : {320, 640, 2560}) {
        const PaintedPage page(PageId::Map, data, width, 300);
        for (const Element& element : page.canvas.elements()) {
            EXPECT_GE(element.area.x, 0) << element.text;
            EXPECT_LE(element.area.right(), width) << element.text;
        }
    }
}

TEST(SatellitePage, PutsTheZenithInTheMiddleAndEastAtTheRight) {
    struct Case {
        int azimuth;
        int elevation;
        Point place;
    };
    const Case cases[] = {{0, 0, {100, 50}}, {90, 0, {150, 100}}, {180, 45, {100, 125}}, {270, 60, {83.3333, 100}},
        {123, 90, {100, 100}}};
    for (const Case& each : cases) {
        const Point place = skyPoint({1, true, 40, each.azimuth, each.elevation}, {100, 100}, 50);
        EXPECT_NEAR(place.x, each.place.x, 1e-3) << each.azimuth;
        EXPECT_NEAR(place.y, each.place.y, 1e-3) << each.azimuth;
    }
}

TEST(SatellitePage, UsedOnesAreFilledAndEachShowsItsSignal) {
    CockpitData data = flying();
    data.satellites = {{7, true, 41, 200, 75}, {29, false, 18, 330, 8}, {30, false, 0, 230, 5}};
    const PaintedPage page(PageId::Satellite, data);
    const RecordingCanvas& canvas = page.canvas;
    EXPECT_NE(canvas.findText("3D fix, 8 satellites"), nullptr);
    const ColorValue used = ColorScheme().Color("nav.background");
    int filled = 0;
    int hollow = 0;
    std::vector<Rect> bars;
    for (const Element& element : canvas.elements()) {
        if (element.kind == Kind::Circle && element.fill) ++(element.fill->color == used ? filled : hollow);
        if (element.kind == Kind::Rect && element.area.width < 100 && element.fill->color == used)
            bars.push_back(element.area);
    }
    EXPECT_EQ(filled, 1);
    EXPECT_EQ(hollow, 2);
    ASSERT_EQ(bars.size(), 1U);
    EXPECT_LT(canvas.findText("41")->area.bottom(), bars[0].y + 1) << "the value above its bar";
    EXPECT_NE(canvas.findText("18"), nullptr);
    EXPECT_NE(canvas.findText("-"), nullptr);
}

TEST(SatellitePage, SaysWhyItIsEmpty) {
    CockpitData data;
    EXPECT_EQ(fixText(data), "No fix, 0 satellites");
    EXPECT_NE(textsOf(PageId::Satellite, data).find("Waiting for satellite data"), std::string::npos);
    data.simulated = true;
    EXPECT_EQ(fixText(data), "SIMULATOR");
    EXPECT_NE(textsOf(PageId::Satellite, data).find("The simulator has no satellites."), std::string::npos);
    data.status = "COM5 4800\nNo Gps Rcvr Activity";
    EXPECT_NE(textsOf(PageId::Satellite, data).find("\nCOM5 4800\nNo Gps Rcvr Activity\n"), std::string::npos);
    data.fixQuality = 1;
    data.satsInUse = 1;
    EXPECT_EQ(fixText(data), "2D fix, 1 satellite");
}

TEST(AttitudePage, CrossesAStalePictureOut) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    const std::vector<std::uint32_t> pixels(std::size_t{800} * 370, 0xFF000000);
    for (const bool alive : {true, false}) {
        RecordingCanvas canvas(800, 370);
        paintAttitudePage(
            canvas, {.picture = {.width = 800, .height = 370, .pixels = pixels}, .alive = alive, .notice = {}}, colors);
        EXPECT_EQ(canvas.elements().front().kind, RecordingCanvas::Kind::Bitmap);
        EXPECT_EQ(canvas.findText("NO ATTITUDE") == nullptr, alive);
    }
}

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
    data.alarms = {"CHECK GEAR"};
    data.simulated = true;
    for (const CockpitData& each : {data, flying(), CockpitData{}})
        for (int page = 0; page < kPageCount; ++page) {
            const PaintedPage night(PageId{page}, each, 800, 370, nightSchemeName());
            const auto& elements = night.canvas.elements();
            for (std::size_t i = 0; i < elements.size(); ++i) {
                if (elements[i].kind != Kind::Text) continue;
                EXPECT_LT(lightOf(groundOf(elements, i, Rgb(0, 0, 0))), lightOf(elements[i].style.color))
                    << page << " " << elements[i].text;
            }
        }
}

TEST(PagePainter, EveryPageShowsSomethingInFlight) {
    for (int page = 0; page < kPageCount; ++page) EXPECT_FALSE(textsOf(PageId{page}, flying()).empty()) << page;
}

}}  // namespace korvel
