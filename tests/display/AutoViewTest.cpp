#include <cmath>

#include <gtest/gtest.h>

#include "Cockpit.h"
#include "display/AutoView.h"
#include "display/AutoZoom.h"
#include "display/MapViewport.h"

namespace korvel { namespace {

// Lets it act until it has nothing more to do; how often it changed the range.
int settle(AutoZoom& zoom, MapViewport& viewport, std::optional<double> distanceNm, int ticks, bool approach = false) {
    int changes = 0;
    for (int i = 0; i < ticks; ++i)
        if (const auto range = zoom.tick(distanceNm, viewport, approach)) changes += viewport.setRange(*range) ? 1 : 0;
    return changes;
}

TEST(AutoZoom, PicksTheRangeThatHoldsTheWaypointInEveryDirection) {
    const struct {
        double distanceNm;
        bool approach;
        int rangeNm;
    } cases[] = {
        {0.1, false, 4}, {0.1, true, 1}, {3, false, 8}, {20, false, 40}, {62, false, 100}, {2000, false, 1000}};
    for (const auto& each : cases)
        for (const PageId page : {PageId::Map, PageId::NorthUp}) {
            MapViewport viewport;
            viewport.layout(page, 800, 600);
            AutoZoom zoom;
            settle(zoom, viewport, each.distanceNm, 20, each.approach);
            EXPECT_EQ(viewport.currentRangeNm(), each.rangeNm) << each.distanceNm;
            if (each.distanceNm > 1000) continue;
            const GeoPoint here = atDegrees(0, 0);
            for (int direction = 0; direction < 360; direction += 15) {
                GeoPoint there;
                PointAtRadialDistance(
                    0, 0, each.distanceNm / kNmPerRadian, direction * kDegToRad, there.lat, there.lon);
                EXPECT_TRUE((Rect{0, 0, 800, 600}.contains(viewport.projection(here, 0).project(there))));
            }
        }
}

TEST(AutoZoom, StepsOnceForEachRangeOnANoisyWay) {
    MapViewport viewport;
    viewport.layout(PageId::Map, 800, 400);
    AutoZoom zoom;
    settle(zoom, viewport, 50, 20);
    const int start = viewport.currentRangeNm();
    int changes = 0;
    std::vector<int> ranges{start};
    for (int step = 2500; step > 10; --step) {
        const double distance = step * 0.02;
        // Bends of the way and a receiver that wanders: ten per cent each way.
        changes += settle(zoom, viewport, distance * (1 + 0.1 * std::sin(distance * 40)), 1);
        if (viewport.currentRangeNm() != ranges.back()) ranges.push_back(viewport.currentRangeNm());
    }
    EXPECT_TRUE(std::is_sorted(ranges.rbegin(), ranges.rend()));
    EXPECT_EQ(changes + 1, static_cast<int>(ranges.size()));
    EXPECT_EQ(ranges.back(), AutoZoom::kClosestNm);
    // The next waypoint is far: out at once.
    EXPECT_EQ(settle(zoom, viewport, 50, 1), 1);
    EXPECT_EQ(viewport.currentRangeNm(), start);
    EXPECT_EQ(settle(zoom, viewport, std::nullopt, 50), 0);
}

class AutoViewTest : public testing::Test {
 protected:
    AutoViewTest() {
        PlanView plan = *data.plan;
        plan.active = plan.rows.size() - 1;
        data.plan = std::make_shared<const PlanView>(plan);
    }
    // One tick at this distance and speed.
    PageId at(double distanceNm, double speedKt = 100) {
        data.distanceNm = distanceNm;
        data.groundSpeedKt = speedKt;
        if (const auto page = view.tick(shown, data)) shown = *page;
        return shown;
    }

    CockpitData data = navigating();
    AutoView view;
    PageId shown = PageId::NorthUp;
};

TEST_F(AutoViewTest, BringsTheHsiNearTheDestinationAndTakesItAway) {
    EXPECT_EQ(at(10.1), PageId::NorthUp);
    EXPECT_EQ(at(9.9), PageId::MapHsi);
    EXPECT_EQ(at(11.9), PageId::MapHsi);
    EXPECT_EQ(at(12.1), PageId::NorthUp);
    EXPECT_EQ(at(11.9), PageId::NorthUp);
    EXPECT_EQ(at(5), PageId::MapHsi);
    EXPECT_EQ(at(0.2, 25), PageId::MapHsi);
    data.position.reset();
    EXPECT_EQ(at(0.2, 0), PageId::MapHsi);
    data.position = flying().position;
    EXPECT_EQ(at(0.2, 15), PageId::NorthUp);
}

TEST_F(AutoViewTest, LeavesOtherPagesAndOtherWaypointsAlone) {
    for (const PageId page : {PageId::FlightPlan, PageId::Efis, PageId::Hsi, PageId::MapHsi}) {
        shown = page;
        EXPECT_EQ(at(5), page);
        EXPECT_EQ(at(20), page);  // it was not its doing
    }
    shown = PageId::Map;
    data.plan = navigating().plan;  // a waypoint on the way
    EXPECT_EQ(at(5), PageId::Map);
    data.approachMode = true;
    EXPECT_EQ(at(5), PageId::MapHsi);
    data.approachMode = false;
    data.directLeg = true;
    EXPECT_EQ(at(5), PageId::MapHsi);
}

TEST_F(AutoViewTest, AskedAwayItStaysAwayForThisApproach) {
    EXPECT_EQ(at(5), PageId::MapHsi);
    shown = PageId::Map;
    view.leaveAlone();
    EXPECT_EQ(at(4), PageId::Map);
    EXPECT_EQ(at(20), PageId::Map);
    EXPECT_EQ(at(5), PageId::MapHsi);
}

}}  // namespace korvel
