#include <gtest/gtest.h>

#include "map/DayMap.h"
#include "map/MeasureTool.h"
#include "map/layers/MeasureLayer.h"

namespace korvel { namespace {

const MapProjection kMap(atDegrees(0, 0), {200, 200}, 2.0, 0);

MeasureTool::Snap onTheMap() {
    return [](Point finger) { return MeasureEnd{.position = kMap.unproject(finger)}; };
}

MeasureTool between(const MeasureEnd& from, const MeasureEnd& to) {
    MeasureTool tool;
    tool.setOn(true);
    tool.press({}, kMap, {}, [&](Point) { return from; });
    tool.release();
    tool.press({}, kMap, {}, [&](Point) { return to; });
    tool.release();
    return tool;
}

TEST(Measure, GivesDistanceBothBearingsAndTheTimeAtThePresentSpeed) {
    const struct {
        MeasureEnd from, to;
        std::vector<std::string> lines;
    } cases[] = {
        {{atDegrees(0, 0), "AAA", 2.0}, {atDegrees(0, 1), "", -3.0},
            {"AAA to …", "60 nm   ETE 30 min 00 s", "090°T  088°M", "back 270°T  273°M"}},
        // Across the 180th meridian, and nothing known of the variation.
        {{atDegrees(10, 179.5)}, {atDegrees(10, -179.5)},
            {"59.1 nm   ETE 29 min 33 s", "090°T  ---°M", "back 270°T  ---°M"}},
        {{atDegrees(89, 0)}, {atDegrees(89, 180)}, {"120 nm   ETE 1 h 00 min", "360°T  ---°M", "back 360°T  ---°M"}},
    };
    CockpitData data = flying();
    data.groundSpeedKt = 120;
    for (const auto& each : cases) {
        const MeasureTool tool = between(each.from, each.to);
        EXPECT_EQ(measureLines(tool, *measure(tool, data), data.distanceUnit), each.lines);
    }
    data.groundSpeedKt = 0;
    const MeasureTool tool = between(cases[0].from, cases[0].to);
    EXPECT_EQ(measureLines(tool, *measure(tool, data), data.distanceUnit)[1], "60 nm   ETE ---");
}

TEST(Measure, TheAircraftsEndGoesWithItAndVanishesWithThePosition) {
    MeasureEnd aircraft{.position = *flying().position, .aircraft = true};
    const MeasureTool tool = between(aircraft, {flying().position.value()});
    EXPECT_NEAR(measure(tool, flying())->distanceNm, 0, 1e-9);
    CockpitData later = flying();
    later.position->lat += kDegToRad;
    EXPECT_NEAR(measure(tool, later)->distanceNm, 60, 0.01);
    EXPECT_FALSE(measure(tool, lost(20)));
}

TEST(Measure, FingersSetMoveAndStartAnew) {
    const CockpitData data;
    MeasureTool tool;
    tool.setOn(true);
    const auto touch = [&](Point down, Point up) {
        tool.press(down, kMap, data, onTheMap());
        if (!(down == up)) tool.drag(up, onTheMap());
        tool.release();
    };
    const auto isAt = [&](const std::optional<MeasureEnd>& end, Point at) {
        return end && SamePoint(end->position, kMap.unproject(at));
    };
    touch({10, 10}, {10, 10});
    EXPECT_TRUE(isAt(tool.from(), {10, 10}) && !tool.to());
    touch({300, 50}, {300, 50});
    EXPECT_TRUE(isAt(tool.from(), {10, 10}) && isAt(tool.to(), {300, 50}));
    touch({290, 60}, {350, 90});  // takes hold of the second end
    EXPECT_TRUE(isAt(tool.from(), {10, 10}) && isAt(tool.to(), {350, 90}));
    touch({5, 20}, {40, 40});  // and of the first
    EXPECT_TRUE(isAt(tool.from(), {40, 40}) && isAt(tool.to(), {350, 90}));
    touch({200, 200}, {250, 250});  // a drag elsewhere is a new line
    EXPECT_TRUE(isAt(tool.from(), {200, 200}) && isAt(tool.to(), {250, 250}));
    touch({100, 300}, {100, 300});
    EXPECT_TRUE(isAt(tool.from(), {100, 300}) && !tool.to());
    tool.setOn(false);
    EXPECT_FALSE(tool.from() || tool.isOn());
}

TEST(Measure, TheLabelIsWholeWhereverTheLineRuns) {
    const CockpitData data = flying();
    const GeoPoint here = *flying().position;
    const GeoPoint ends[] = {here, {here.lat + 0.01, here.lon}, {here.lat - 0.02, here.lon - 0.03},
        {here.lat, here.lon + 0.3}, {-here.lat, here.lon - 2}};
    for (const int range : kRangeStepsNm)
        for (const GeoPoint& end : ends) {
            const MeasureTool tool = between({here}, {end});
            DayMap map(PageId::Map, 480, 300, range);
            MapContent content = map.content(data);
            content.measure = &tool;
            for (const auto& each : map.paint(content).elements())
                if (each.text.find("ETE") != std::string::npos) {
                    const Rect& label = each.area;
                    EXPECT_TRUE(label.x >= 0 && label.right() <= 480 && label.y >= 0 && label.bottom() <= 300);
                }
        }
}

}}  // namespace korvel
