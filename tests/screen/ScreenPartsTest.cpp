#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/Cockpit.h"
#include "config/ProfileFile.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "platform/RegistryProfile.h"
#include "screen/Announcements.h"
#include "screen/HomePlace.h"
#include "screen/MapAngle.h"
#include "screen/MapCamera.h"
#include "screen/PageCycle.h"
#include "screen/PageLists.h"
#include "screen/ZoomGesture.h"

namespace korvel { namespace {

/// A plan and the nearest airports, forty rows each, row 20 of the plan flown to.
CockpitData longLists() {
    CockpitData data = flying();
    PlanView plan;
    plan.rows.resize(40);
    plan.active = 20;
    data.plan = std::make_shared<const PlanView>(plan);
    std::vector<NearAirport> airports(40);
    for (std::size_t i = 0; i < airports.size(); ++i) airports[i].key = "a." + std::to_string(i);
    data.nearAirports = std::make_shared<const std::vector<NearAirport>>(airports);
    return data;
}

TEST(PageLists, TheMarkBeginsAtWhatIsFlownToAndStaysInTheList) {
    const CockpitData data = longLists();
    for (const auto& [page, start] : {std::pair{PageId::FlightPlan, 20U}, {PageId::NearestAirport, 0U}}) {
        const ListPage list{page, 800, 400, data};
        PageLists lists;
        EXPECT_EQ(lists.marked(list), std::nullopt);
        for (const auto& [rows, marked] :
            {std::pair{-1, start}, {1, start + 1}, {3, start + 4}, {-100, 0U}, {11, 11U}, {100, 39U}, {-1, 38U}}) {
            EXPECT_TRUE(lists.moveMark(list, rows));
            EXPECT_EQ(lists.marked(list), marked);
            // It is on the screen: its row is found under a finger.
            bool isSeen = false;
            for (int y = 0; y < 400; y += 5) isSeen |= lists.rowAt(list, {300, static_cast<double>(y)}) == marked;
            EXPECT_TRUE(isSeen) << marked;
        }
        EXPECT_EQ(lists.marked({PageId::Map, 800, 400, data}), std::nullopt);
        EXPECT_EQ(lists.marked({page, 800, 400, flying()}), std::nullopt) << "the list is gone";
        EXPECT_FALSE(lists.moveMark({page, 800, 400, flying()}, 1));
        lists.reset();
        EXPECT_EQ(lists.marked(list), std::nullopt);
    }
}

TEST(PageLists, ScrollingKeepsBetweenTheEnds) {
    const CockpitData data = longLists();
    PageLists lists;
    const ListPage plan{PageId::FlightPlan, 800, 400, data};
    const std::size_t last = FlightPlanRows(800, 400, 40).lastFirst();
    const std::size_t first = firstShownRow(data, lists.plan(), {800, 400, 40});
    for (const auto& [rows, expected] :
        {std::pair<int, std::size_t>{2, first + 2}, {-1, first + 1}, {-100, 0}, {3, 3}, {100, last}}) {
        lists.scroll(plan, rows);
        EXPECT_EQ(lists.plan().firstRow, expected);
    }
    const ListPage nearest{PageId::NearestAirport, 800, 400, data};
    for (const auto& [rows, expected] : {std::pair<int, std::size_t>{2, 2}, {-1, 1}, {-100, 0}, {100, 40}}) {
        lists.scroll(nearest, rows);
        EXPECT_EQ(lists.nearest().first, expected);
    }
    EXPECT_EQ(lists.plan().firstRow, last) << "that was the other list";
}

TEST(PageLists, TheMarkStaysWithItsAirport) {
    const CockpitData before = longLists();
    CockpitData now = before;
    std::vector<NearAirport> airports = *before.nearAirports;
    std::swap(airports[1], airports[5]);
    airports.erase(airports.begin() + 2);
    now.nearAirports = std::make_shared<const std::vector<NearAirport>>(airports);
    for (const auto& [from, to] : {std::pair<int, std::optional<std::size_t>>{1, 4}, {5, 1}, {2, std::nullopt}}) {
        PageLists lists;
        lists.moveMark({PageId::NearestAirport, 800, 400, before}, 0);
        lists.moveMark({PageId::NearestAirport, 800, 400, before}, from);
        lists.follow(before, now);
        EXPECT_EQ(lists.nearest().selected, to);
    }
}

TEST(Announcements, EachWaypointIsToldOnceWithTheAltitudeThere) {
    Announcements announcements;
    CockpitData data = navigating();
    PlanView plan = *data.plan;
    plan.rows[1].position = *data.activeWaypoint;
    plan.rows[1].altitudeFt = 4500;
    const auto tell = [&](std::string key, std::string name) {
        data.activeKey = std::move(key);
        data.activeName = std::move(name);
        data.plan = std::make_shared<const PlanView>(plan);
        return announcements.tick(data);
    };
    EXPECT_EQ(announcements.tick(flying()), "") << "nothing is flown to";
    EXPECT_EQ(tell("a.EDMA", "AUGSBURG"), "Next: EDMA AUGSBURG, 4500 ft");
    plan.rows[1].altitudeFt = 4000;
    EXPECT_EQ(tell("a.EDMA", "AUGSBURG"), "");
    plan.rows[1].altitudeFt.reset();
    EXPECT_EQ(tell("v.AUG", "AUGSBURG"), "Next: AUG AUGSBURG") << "the target altitude is a later one's";
    EXPECT_EQ(tell("f.LAKE", "LAKE"), "Next: LAKE");
    EXPECT_EQ(tell("f.HILL", ""), "Next: HILL");
    EXPECT_EQ(tell("", "HERE"), "Next: HERE");
    data.directLeg = true;
    EXPECT_EQ(tell("a.EDMA", ""), "Next: EDMA, 3500 ft");
    EXPECT_EQ(tell("", ""), "");
    EXPECT_EQ(tell("a.EDMA", ""), "Next: EDMA, 3500 ft") << "flown to anew";
}

TEST(Announcements, AnApproachGoesOnWithoutAPosition) {
    Announcements announcements;
    CockpitData data = flying();
    announcements.tick(data);
    data.approach.emplace();
    data.approach->runway.id = "36";
    data.approach->runway.airport = "XFLD";
    EXPECT_EQ(announcements.tick(data), "Approach to runway 36 at XFLD");
    EXPECT_EQ(announcements.tick(lost(6)), "");
    EXPECT_EQ(announcements.tick(data), "");
    data.approach->runway.id = "18";
    EXPECT_EQ(announcements.tick(data), "Approach to runway 18 at XFLD");
    EXPECT_EQ(announcements.tick(flying()), "Approach ended");
    EXPECT_EQ(announcements.tick(flying()), "");
}

TEST(Announcements, TheEndOfAReplayIsToldOnce) {
    Announcements announcements;
    CockpitData data = flying();
    data.source = SourceKind::Replay;
    EXPECT_EQ(announcements.tick(data), "");
    data.sourceEnded = true;
    EXPECT_EQ(announcements.tick(data), "Replay ended");
    EXPECT_EQ(announcements.tick(data), "");
    data.sourceEnded = false;
    announcements.tick(data);
    data.sourceEnded = true;
    EXPECT_EQ(announcements.tick(data), "Replay ended") << "of another one";
}

CockpitData moving(double trackTrueDeg, double groundSpeedKt) {
    CockpitData data;
    data.position = GeoPoint{0.8, 0.1};
    data.trackTrueDeg = trackTrueDeg;
    data.groundSpeedKt = groundSpeedKt;
    return data;
}

TEST(MapAngle, FollowsOnlyATrackThatCanBeTrusted) {
    CockpitData stale = moving(200, 100);
    stale.position.reset();
    CockpitData trackless = moving(200, 100);
    trackless.trackTrueDeg.reset();
    MapAngle angle;
    const std::pair<CockpitData, int> steps[] = {{{}, 0}, {moving(90, 2.9), 0}, {moving(123.6, 3), 124},
        {moving(200, 1), 124}, {stale, 124}, {trackless, 124}, {moving(359.7, 100), 0}, {moving(-10, 100), 350}};
    for (const auto& [data, upDeg] : steps) EXPECT_EQ(angle.update(data), upDeg);
}

TEST(MapCamera, StaysWhereTheAircraftWasSeenLast) {
    MapCamera camera;
    EXPECT_FALSE(camera.center());
    CockpitData data = flying();
    data.lastPosition = GeoPoint{0.1, 0.2};
    camera.update(data);
    EXPECT_EQ(camera.center(), data.position);
    data.position.reset();
    camera.update(data);
    EXPECT_EQ(camera.center(), data.lastPosition);
}

TEST(HomePlace, IsWhereTheReceiverLastWas) {
    const TempFolder folder;
    const auto registry = openRegistryProfile();
    const auto kept = [&](const std::function<void(CockpitData&)>& change) {
        ProfileFile profile(folder.path(), *registry);
        HomePlace home;
        home.load(profile);
        CockpitData data = flying();
        data.position = GeoPoint{-33.94 * kDegToRad, 151.18 * kDegToRad};
        change(data);
        home.update(data);
        home.save(profile);
        profile.save();
        ProfileFile again(folder.path(), *registry);
        HomePlace next;
        next.load(again);
        return next.place();
    };
    EXPECT_EQ(kept([](CockpitData& data) { data.simulated = true; }), std::nullopt);
    EXPECT_EQ(kept([](CockpitData& data) { data.source = SourceKind::Replay; }), std::nullopt);
    EXPECT_EQ(kept([](CockpitData& data) { data.position.reset(); }), std::nullopt);
    const auto flown = kept([](CockpitData&) {});
    ASSERT_TRUE(flown);
    EXPECT_NEAR(flown->lat * kRadToDeg, -33.9, 1e-9);
    EXPECT_NEAR(flown->lon * kRadToDeg, 151.2, 1e-9);
    EXPECT_EQ(kept([](CockpitData& data) { data.simulated = true; }), flown) << "remembered";
    ProfileFile profile(folder.path(), *registry);
    profile.setString(kOptionsSection, "MapLat", "95.0");
    HomePlace none;
    none.load(profile);
    EXPECT_EQ(none.place(), std::nullopt);
}

TEST(ZoomGesture, AddsUpFineMovementsAndTurnsAtOnce) {
    ZoomGesture zoom;
    EXPECT_EQ(zoom.wheel(120), 1);
    EXPECT_EQ(zoom.wheel(-240), -2);
    int steps = 0;
    for (int i = 0; i < 16; ++i) steps += zoom.wheel(15);
    EXPECT_EQ(steps, 2);
    EXPECT_EQ(zoom.wheel(90), 0);
    EXPECT_EQ(zoom.wheel(-90), 0);  // would be one step in, were the 90 not forgotten
    EXPECT_EQ(zoom.wheel(-30), -1);

    zoom.reset();
    steps = 0;
    for (int i = 0; i < 40; ++i) steps += zoom.pinch(1.0242);  // 40 times: a factor of 2.6, two steps
    EXPECT_EQ(steps, 2);
    zoom.reset();
    EXPECT_EQ(zoom.pinch(0.5), -1);
    EXPECT_EQ(zoom.pinch(0), 0);
}

TEST(PageCycle, GoesOnceAroundWhatTheMaskLeaves) {
    constexpr auto bit = [](PageId page) { return 1 << static_cast<int>(page); };
    // The default mask leaves one page, which is nothing to go through: everything then.
    for (const int mask : {0x80, 0, bit(PageId::Map)}) {
        PageId page = PageId::Map;
        for (const PageId expected : availablePages()) {
            if (expected == PageId::Attitude || expected == PageId::Airspace || expected == PageId::Profile)
                continue;  // only where it was chosen
            EXPECT_EQ(page, expected);
            page = nextPage(page, mask);
        }
        EXPECT_EQ(page, PageId::Map);
    }
    const int two = bit(PageId::Map) | bit(PageId::Satellite);
    EXPECT_EQ(nextPage(PageId::Map, two), PageId::Satellite);
    EXPECT_EQ(nextPage(PageId::Satellite, two), PageId::Map);
    EXPECT_EQ(nextPage(PageId::NorthUp, two), PageId::Satellite);
    EXPECT_EQ(nextPage(PageId::Satellite, two | bit(PageId::Attitude)), PageId::Attitude);
    for (const int number : {-1, 11, 99}) EXPECT_EQ(pageOfNumber(number), PageId::Map);
    for (const PageId each : availablePages()) EXPECT_EQ(pageOfName(pageName(each)), each);
    EXPECT_EQ(pageOfName("map"), std::nullopt);
}

}}  // namespace korvel
