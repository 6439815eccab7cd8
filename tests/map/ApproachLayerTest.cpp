#include <gtest/gtest.h>

#include "map/DayMap.h"

namespace korvel { namespace {

TEST(ApproachLayer, MarksTheCenterLineInTheUnitInForceAndAsDenseAsThereIsRoom) {
    CockpitData data = approaching();
    DayMap near(PageId::Map, 1000, 700, 4);
    near.paint(data, 45);
    const auto* one = near.canvas.findText("1  1868 ft");
    const auto* three = near.canvas.findText("3  2505 ft");
    ASSERT_TRUE(one && three);
    EXPECT_GT(three->area.y, one->area.y + 50) << "the runway lies ahead";
    DayMap far(PageId::Map, 1000, 700, 25);
    EXPECT_FALSE(far.paint(data, 45).findText("1  1868 ft"));
    EXPECT_TRUE(far.canvas.findText("10  4734 ft"));
    data.altUnit = 1;
    data.distanceUnit = DistanceUnit::Kilometres;
    EXPECT_TRUE(near.paint(data, 45).findText("1  525 m")) << "172 ft up a kilometre";
    data.approach->runway.thresholdFt.reset();
    EXPECT_TRUE(near.paint(data, 45).findText("1"));
}

}}  // namespace korvel
