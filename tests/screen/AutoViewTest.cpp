#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "map/MapViewport.h"
#include "screen/AutoView.h"
#include "screen/AutoZoom.h"

namespace korvel { namespace {

class AutoZoomTest : public testing::Test {
 protected:
    Point waypointAt(double distanceNm, double direction) const {
        GeoPoint there;
        PointAtRadialDistance(0, 0, distanceNm / kNmPerRadian, direction * kDegToRad, there.lat, there.lon);
        return viewport.projection(atDegrees(0, 0), 0).project(there);
    }
    // Ticks with the waypoint there; how often that changed the range.
    int settle(double distanceNm, double direction, int ticks = 1, bool approach = false) {
        int changes = 0;
        for (int i = 0; i < ticks; ++i)
            if (const auto range = zoom.tick(waypointAt(distanceNm, direction), viewport, approach))
                changes += viewport.setRange(*range) ? 1 : 0;
        return changes;
    }

    MapViewport viewport;
    AutoZoom zoom;
};

TEST_F(AutoZoomTest, PicksTheClosestRangeThatHoldsTheWaypointWhereItLies) {
    for (const auto& [width, height] : {std::pair{800, 600}, std::pair{1280, 420}, std::pair{480, 640}})
        for (const PageId page : {PageId::Map, PageId::NorthUp, PageId::MapHsi})
            for (const double distance : {5.0, 20.0, 62.0, 400.0})
                for (int direction = 0; direction < 360; direction += 15) {
                    viewport.layout(page, width, height);
                    settle(distance, direction, 20);
                    const auto isInside = [&, room = Rect{44, 44, width - 88.0, height - 88.0}] {
                        return room.contains(waypointAt(distance, direction));
                    };
                    EXPECT_TRUE(isInside()) << width << ' ' << distance << ' ' << direction;
                    const auto* const step = std::ranges::find(kRangeStepsNm, viewport.currentRangeNm());
                    if (*step <= AutoZoom::kClosestNm) continue;
                    // What it wants to spare before it comes closer, it must need.
                    viewport.setRange(*(step - 1) / 1.35);
                    EXPECT_FALSE(isInside()) << width << ' ' << distance << ' ' << direction;
                }
    // A wide window has most room at its sides.
    viewport.layout(PageId::Map, 800, 600);
    settle(21, 90, 20);
    settle(24, 90, 20);
    EXPECT_EQ(viewport.currentRangeNm(), 25);
    settle(24, 0, 20);
    EXPECT_EQ(viewport.currentRangeNm(), 40);
    settle(0.1, 90, 20);
    EXPECT_EQ(viewport.currentRangeNm(), AutoZoom::kClosestNm);
    settle(0.1, 90, 20, true);
    EXPECT_EQ(viewport.currentRangeNm(), AutoZoom::kClosestInApproachNm);
    EXPECT_EQ(settle(9000, 90, 20), 0) << "no range holds it";
}

TEST_F(AutoZoomTest, StepsOnceForEachRangeOnANoisyWay) {
    viewport.layout(PageId::Map, 800, 400);
    settle(55, 0, 20);
    int changes = 0;
    std::vector<int> ranges{viewport.currentRangeNm()};
    for (int step = 2500; step > 10; --step) {
        const double distance = step * 0.02;
        // Bends of the way and a receiver that wanders: ten per cent each way, and as it points.
        const double noise = std::sin(distance * 40);
        changes += settle(distance * (1 + 0.1 * noise), 8 * noise);
        if (viewport.currentRangeNm() != ranges.back()) ranges.push_back(viewport.currentRangeNm());
    }
    EXPECT_TRUE(std::is_sorted(ranges.rbegin(), ranges.rend()));
    EXPECT_EQ(changes + 1, static_cast<int>(ranges.size()));
    EXPECT_EQ(ranges.back(), AutoZoom::kClosestNm);
    // The next waypoint is far: out at once.
    EXPECT_EQ(settle(50, 0), 1);
    EXPECT_EQ(viewport.currentRangeNm(), 65);
    // A turn: out at once where the waypoint leaves the map, and not before.
    EXPECT_EQ(settle(50, 90), 0);
    EXPECT_EQ(settle(50, 170), 1);
    EXPECT_EQ(zoom.tick(std::nullopt, viewport, false), std::nullopt);
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
    for (const auto& [nm, page] : {std::pair{10.1, PageId::NorthUp}, {9.9, PageId::MapHsi}, {11.9, PageId::MapHsi},
             {12.1, PageId::NorthUp}, {11.9, PageId::NorthUp}, {5., PageId::MapHsi}})
        EXPECT_EQ(at(nm), page) << nm;
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
    data.approach.emplace();
    EXPECT_EQ(at(5), PageId::MapHsi);
    data.approach.reset();
    data.directLeg = true;
    EXPECT_EQ(at(5), PageId::MapHsi);
}

TEST_F(AutoViewTest, AskedAwayItStaysAwayForThisApproach) {
    EXPECT_EQ(at(5), PageId::MapHsi);
    shown = PageId::Map;
    view.leaveAlone();
    EXPECT_EQ(at(4), PageId::Map);
    EXPECT_EQ(at(20), PageId::Map);
    // The next approach, but not at once.
    int ticks = 2;
    while (at(5) == PageId::Map && ticks < 100) ++ticks;
    EXPECT_EQ(ticks, 60);
}

}}  // namespace korvel
