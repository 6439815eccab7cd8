#include <algorithm>
#include <cstdint>
#include <map>
#include <vector>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "pages/AlarmBoxes.h"
#include "pages/AttitudePage.h"
#include "pages/SatellitePage.h"
#include "pages/StatusScreen.h"
#include "paint/B612Metrics.h"
#include "paint/ColorScheme.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

using Element = RecordingCanvas::Element;
using Kind = RecordingCanvas::Kind;

/// A page painted with the day scheme.
struct Painted {
    RecordingCanvas canvas;

    Painted(
        void (*paint)(Canvas&, const CockpitData&, const MapColorCache&), const CockpitData& data, double width = 800)
        : canvas(width, 370) {
        const ColorScheme scheme;
        paint(canvas, data, MapColorCache(scheme));
    }
};

TEST(StatusScreen, SaysHowFarTheConnectionIs) {
    CockpitData data;
    data.status = "COM5 4800\nNo Gps Rcvr Activity";
    EXPECT_EQ(Painted(paintStatusScreen, data).canvas.texts(),
        "COM5 4800\nNo Gps Rcvr Activity\n"
        "Connecting to GPS...\nSelect Options.Simulator menu to test.\n");
    data.receiverActive = true;
    data.status = "Locating Satellites";
    EXPECT_EQ(Painted(paintStatusScreen, data).canvas.texts(), "Locating Satellites\n");
    EXPECT_EQ(Painted(paintStatusScreen, {}).canvas.texts(),
        "Connecting to GPS...\nSelect Options.Simulator menu to test.\n");
}

TEST(StatusScreen, FitsAnyWindow) {
    CockpitData data;
    data.status = "COM5:,38400,N,8,1\nThe port is being used by some other program";
    for (const int width : {320, 640, 2560}) {
        const Painted page(paintStatusScreen, data, width);
        for (const Element& element : page.canvas.elements())
            EXPECT_TRUE(element.area.x >= 0 && element.area.right() <= width) << element.text;
    }
}

TEST(SatellitePage, PutsTheZenithInTheMiddleAndEastAtTheRight) {
    const struct {
        int azimuth;
        int elevation;
        Point place;
    } cases[] = {{0, 0, {100, 50}}, {90, 0, {150, 100}}, {180, 45, {100, 125}}, {270, 60, {83.3333, 100}},
        {123, 90, {100, 100}}};
    for (const auto& each : cases) {
        const Point place = skyPoint({1, true, 40, each.azimuth, each.elevation}, {100, 100}, 50);
        EXPECT_NEAR(place.x, each.place.x, 1e-3) << each.azimuth;
        EXPECT_NEAR(place.y, each.place.y, 1e-3) << each.azimuth;
    }
}

TEST(SatellitePage, UsedOnesAreFilledAndEachShowsItsSignal) {
    CockpitData data = flying();
    data.satellites = {{7, true, 41, 200, 75}, {29, false, 18, 330, 8}, {30, false, 0, 230, 5}};
    const Painted page(paintSatellitePage, data);
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

TEST(SatellitePage, TellsTheSystemsApart) {
    CockpitData data = flying();
    using enum SatelliteSystem;
    for (const SatelliteSystem system : {Gps, Sbas, Glonass, Galileo, BeiDou, Qzss, NavIc})
        for (int number = 1; number <= 6; ++number)
            data.satellites.push_back({number, number > 1, 40, 50 * number, 10 * number, system});
    const Painted page(paintSatellitePage, data);
    for (const char* name : {"GPS", "SBAS", "GLONASS", "Galileo", "BeiDou", "QZSS", "NavIC", "in use", "not in use"})
        EXPECT_NE(page.canvas.findText(name), nullptr) << name;
    std::map<std::pair<std::size_t, ColorValue>, int> symbols;  // corners and colour of those in use
    double lowest = 0;
    for (const Element& element : page.canvas.elements()) {
        if (element.kind == Kind::Polygon && element.fill) ++symbols[{element.points.size(), element.fill->color}];
        if (element.kind != Kind::Line) lowest = std::max(lowest, element.area.bottom());
    }
    const auto often = std::ranges::count_if(symbols, [](const auto& symbol) { return symbol.second >= 5; });
    EXPECT_GE(often, 6) << "a shape and a colour for each but GPS, whose are discs";
    EXPECT_LE(lowest, 371) << "three rows of bars and the legend have room";
}

TEST(SatellitePage, SaysWhyItIsEmpty) {
    CockpitData data;
    EXPECT_EQ(fixText(data), "No fix, 0 satellites");
    EXPECT_NE(Painted(paintSatellitePage, data).canvas.texts().find("Waiting for satellite data"), std::string::npos);
    data.simulated = true;
    EXPECT_EQ(fixText(data), "SIMULATOR");
    EXPECT_NE(
        Painted(paintSatellitePage, data).canvas.texts().find("The simulator has no satellites."), std::string::npos);
    data.status = "COM5 4800\nNo Gps Rcvr Activity";
    EXPECT_NE(Painted(paintSatellitePage, data).canvas.texts().find("\nCOM5 4800\nNo Gps Rcvr Activity\n"),
        std::string::npos);
    data.fixQuality = 1;
    data.satsInUse = 1;
    EXPECT_EQ(fixText(data), "Fix, 1 satellite") << "nobody says of how many dimensions";
    data.fix2D = true;
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

TEST(AlarmBoxes, FillAStripBelowThePageRowByRow) {
    const std::vector<ShownAlarm> alarms = {{"CHECK GEAR"}, {"OFF COURSE"}, {"Arriving at KBFI"}};
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

}}  // namespace korvel
