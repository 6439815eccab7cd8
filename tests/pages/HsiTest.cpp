#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "pages/HsiGeometry.h"
#include "pages/HsiPage.h"
#include "pages/HsiPainter.h"
#include "paint/Clip.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"

namespace korvel { namespace {

using Element = RecordingCanvas::Element;

HsiState stateAt(int heading) {
    HsiState state;
    state.heading = heading;
    state.place(500, 300);
    return state;
}

// The direction that stands at a screen angle, read off the ticks.
double valueAtTop(const HsiGeometry& geometry) {
    for (const auto& tick : geometry.ticks())
        if (std::abs(tick.angle - 90) < 10 && tick.angle <= 90) return tick.value - (90 - tick.angle) + 360.0;
    return -1;
}

TEST(HsiGeometry, TheRadiusFollowsTheWidth) {
    HsiState state;
    state.place(150, 180);
    EXPECT_EQ(HsiGeometry(state).cardRadius(), 135);
    state.place(500, 180);
    EXPECT_EQ(HsiGeometry(state).cardRadius(), 185);
}

TEST(HsiGeometry, TheHeadingStandsAtTheTop) {
    for (const int heading : {0, 1, 7, 45, 89, 90, 270, 359, 360})
        EXPECT_EQ(std::fmod(valueAtTop(HsiGeometry(stateAt(heading))), 360), heading % 360);
    const HsiGeometry none(stateAt(HsiState::kNone));
    EXPECT_EQ(std::fmod(valueAtTop(none), 360), 280);
    EXPECT_EQ(none.headingText(), "...");
    EXPECT_EQ(HsiGeometry(stateAt(7)).headingText(), "007");
}

TEST(HsiGeometry, LabelsTurnWithTheCardAndStandOnTheRimsSide) {
    const struct {
        int heading;
        std::string text;
        Rect box;  // of a text 30 pixels wide
    } cases[] = {{0, "N", {485, 130, 30, 20}}, {0, "E", {650, 290, 30, 20}}, {0, "S", {485, 450, 30, 20}},
        {0, "W", {320, 290, 30, 20}}, {90, "E", {485, 130, 30, 20}}, {330, "30", {403, 151, 30, 20}}};
    for (const auto& each : cases) {
        const HsiGeometry geometry(stateAt(each.heading));
        int found = 0;
        for (const auto& tick : geometry.ticks())
            if (tick.labelled && HsiGeometry::labelText(tick.value) == each.text) {
                ++found;
                EXPECT_EQ(geometry.labelBox(tick, 30), each.box)
                    << each.text << geometry.labelBox(tick, 30).x << " " << geometry.labelBox(tick, 30).y;
            }
        EXPECT_EQ(found, 1) << each.text;
    }
}

TEST(HsiGeometry, TheBearingMarkKeepsItsGap) {
    HsiState state = stateAt(350);
    EXPECT_FALSE(HsiGeometry(state).bearingMark());
    state.bearing = 80.4;  // at the right
    const auto mark = HsiGeometry(state).bearingMark();
    ASSERT_TRUE(mark);
    for (const Segment& chord : *mark) {
        EXPECT_GT(chord.from.x, 670);
        EXPECT_LT((chord.from.y - 300) * (chord.to.y - 300), 0.5 * 185 * 185);
        EXPECT_GE(std::min(std::abs(chord.from.y - 300), std::abs(chord.to.y - 300)), 3);
        EXPECT_LE(std::max(std::abs(chord.from.y - 300), std::abs(chord.to.y - 300)), 23);
        EXPECT_GT((chord.from.y - 300) * (chord.to.y - 300), 0) << "the gap is crossed";
    }
}

TEST(HsiGeometry, TheBarShowsWhereTheCourseLies) {
    const struct {
        int heading;
        int course;
        double deviation;
        int angle;  // of the needle
        double dx;  // of the bar's middle from the aircraft
        double dy;
    } cases[] = {{0, 0, 1, 90, 99, 0}, {0, 0, -0.5, 90, -49.5, 0}, {0, 0, 3, 90, 99, 0}, {0, 180, 1, 270, -99, 0},
        {0, 90, 1, 0, 0, 99}, {350, 10, 0, 70, 0, 0}, {350, 350, -1, 90, -99, 0}};
    for (const auto& each : cases) {
        HsiState state = stateAt(each.heading);
        state.course = each.course;
        state.deviation = each.deviation;
        const auto needle = HsiGeometry(state).needle();
        ASSERT_TRUE(needle && needle->bar);
        EXPECT_EQ(needle->angle, each.angle);
        EXPECT_NEAR((needle->bar->from.x + needle->bar->to.x) / 2 - 500, each.dx, 0.6);
        EXPECT_NEAR((needle->bar->from.y + needle->bar->to.y) / 2 - 300, each.dy, 0.6);
        EXPECT_NEAR(std::hypot(needle->marks.back().x - 500, needle->marks.back().y - 300), 99, 1);
    }
    HsiState state = stateAt(20);
    EXPECT_FALSE(HsiGeometry(state).needle()) << "no course, no needle";
    state.course = 20;
    EXPECT_FALSE(HsiGeometry(state).needle()->bar);
}

TEST(HsiGeometry, TheTriangleStandsBesideTheNeedle) {
    HsiState state = stateAt(0);
    state.course = 0;
    state.toFrom = 1;
    const auto corners = [&state] { return HsiGeometry(state).needle()->toFrom; };
    EXPECT_EQ(corners(), (std::array{Point{573, 285}, Point{593, 285}, Point{583, 275}}));
    for (const int back : {0, 2, -1}) {
        state.toFrom = back;
        EXPECT_EQ(corners(), (std::array{Point{573, 315}, Point{593, 315}, Point{583, 325}}));
    }
}

TEST(HsiPainter, OnlyAnInvalidCourseIsRed) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    HsiState state = stateAt(0);
    state.course = 30;
    for (const int toFrom : {0, 1, 2}) {
        state.toFrom = toFrom;
        RecordingCanvas canvas(1000, 540);
        paintHsi(canvas, state, colors);
        const auto red = std::ranges::count_if(canvas.elements(),
            [](const Element& element) { return element.fill && element.fill->color == Rgb(255, 0, 0); });
        EXPECT_EQ(red, toFrom == 0 ? 1 : 0);
        EXPECT_EQ(canvas.texts(), "E\n6\n3\nN\n33\n30\nW\n24\n21\nS\n15\n12\n000\n");
    }
}

TEST(HsiPage, ShowsTheLegAsAPilotReadsIt) {
    CockpitData data = navigating();
    HsiState state = hsiState(data);
    EXPECT_EQ(std::tuple(state.heading, state.course, state.bearing, state.toFrom), std::tuple(83, 89, 91.4, 1));
    EXPECT_DOUBLE_EQ(state.deviation, 1.26 / 5) << "left of course: the course lies to the right";
    data.approach.emplace();
    data.fullScaleNm = 1.25;
    EXPECT_DOUBLE_EQ(hsiState(data).deviation, 1.26 / 1.25);
    data.obsCourseMagDeg = 200;
    EXPECT_EQ(hsiState(data).course, 200);
    EXPECT_EQ(hsiState(data).toFrom, 2) << "behind";
    data.bearingMagDeg.reset();
    EXPECT_EQ(hsiState(data).toFrom, 0);
    EXPECT_EQ(hsiState(data).bearing, kNoAngle);
    data.trackMagDeg = 0.2;
    EXPECT_EQ(hsiState(data).heading, 360) << "as courses are read";
    data.trackMagDeg.reset();
    EXPECT_EQ(hsiState(data).course, HsiState::kNone) << "without a track there is no up";
}

TEST(HsiPage, BesideTheCardStandsWhatComesNext) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    CockpitData data = navigating();
    const auto plan = planOf(6, 1);
    data.activeWaypoint = plan->rows[1].position;
    data.plan = plan;
    data.groundSpeedKt = 120;
    const auto textsOf = [&](double width, double height) {
        RecordingCanvas canvas(width, height);
        paintHsiPage(canvas, data, {width / 2, height / 2 + 10}, colors);
        return "\n" + canvas.texts();
    };
    const std::string wide = textsOf(800, 350);
    EXPECT_NE(wide.find("\nNEXT\nW2\n64.3 nm\n14:37\nW3\n94.3 nm\n14:52\nW4\n124 nm\n15:07\n"), std::string::npos)
        << wide;
    EXPECT_EQ(wide.find("W5"), std::string::npos) << "three";
    EXPECT_NE(wide.find("\nTGT ALT\n3500 ft\nVS REQ\n-520 fpm\n"), std::string::npos);
    EXPECT_EQ(textsOf(460, 600).find("NEXT"), std::string::npos) << "no room beside the card";
    data.activeWaypoint = atDegrees(47, 11);
    EXPECT_EQ(textsOf(800, 350).find("NEXT"), std::string::npos) << "what is flown is not the plan";
    data = approaching();
    data.plan = plan;
    EXPECT_EQ(textsOf(800, 350).find("NEXT"), std::string::npos) << "the approach's box stands there";
}

TEST(HsiPage, StatesItsFullScaleInTheUnitInForce) {
    CockpitData data;
    for (const auto& [unit, scale, text] : {std::tuple{0, 5.0, "±5 nm"}, std::tuple{0, 1.25, "±1.25 nm"},
             std::tuple{2, 5.0, "±9.26 km"}, std::tuple{1, 1.25, "±1.44 mi"}}) {
        data.distanceUnit = distanceUnitOf(unit);
        data.fullScaleNm = scale;
        EXPECT_EQ(fullScaleText(data), text);
    }
}

}}  // namespace korvel
