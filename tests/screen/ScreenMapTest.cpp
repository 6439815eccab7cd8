#include <algorithm>

#include "geo/Geodesy.h"
#include "map/layers/MeasureLayer.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "paint/TypeSizes.h"
#include "screen/PageCycle.h"
#include "screen/PagePainter.h"
#include "screen/ScreenFixture.h"

namespace korvel { namespace {

const GeoPoint kField = atDegrees(47.11, 10);

TEST_F(ScreenTest, TheMapFollowsTheHandAndComesBackToTheAircraft) {
    screen_.setRange(8);
    screen_.showPage(PageId::NorthUp);
    drag(onPage(0, 0), onPage(100, 0));
    EXPECT_TRUE(isPanned()) << "the map is there before any aircraft";
    screen_.showPage(PageId::NorthUp);
    fly(47, 10);
    const double step = std::min(screen_.areas().page().width, screen_.areas().page().height) / 8;
    const struct {
        std::function<void()> act;
        Point moved;
    } cases[] = {
        {[&] { drag(onPage(0, 0), onPage(100, -40)); }, {100, -40}},
        {[&] { drag(onPage(-50, 20), onPage(-50, 33)); }, {0, 13}},
        {[&] { drag(onPage(0, 0), onPage(12, 0)); }, {0, 0}},  // an unsteady tap
        {[&] { hand_.key(ScreenKey::Left); }, {step, 0}},
        {[&] { hand_.key(ScreenKey::Right); }, {-step, 0}},
        {[&] { hand_.key(ScreenKey::Up); }, {0, step}},
        {[&] { hand_.key(ScreenKey::Down); }, {0, -step}},
    };
    for (const auto& [act, moved] : cases) {
        const Point before = whereIs(*screen_.data().position);
        act();
        const Point after = whereIs(*screen_.data().position);
        EXPECT_NEAR(after.x - before.x, moved.x, 0.2);
        EXPECT_NEAR(after.y - before.y, moved.y, 0.2);
        EXPECT_EQ(isPanned(), moved != Point{});
        screen_.closeCard();
        tap(button(TouchCommand::Aircraft));
        EXPECT_FALSE(isPanned());
    }
}

TEST_F(ScreenTest, TheMapZoomsAboutTheFingerAndKeepsTheRangeWhenItComesBack) {
    screen_.showPage(PageId::NorthUp);
    fly(47, 10);
    const Point finger = onPage(-150, 60);
    const auto ground = [&] { return screen_.camera().projection()->unproject(screen_.areas().onPage(finger)); };
    hand_.wheel(120, finger);
    EXPECT_FALSE(isPanned()) << "the aircraft is not lost by it";
    drag(onPage(0, 0), onPage(80, 0));
    const std::function<void()> zooms[] = {
        [&] { hand_.wheel(120, finger); },
        [&] { hand_.wheel(-240, finger); },
        [&] { hand_.pinch(2.6, true, finger); },
    };
    for (const auto& zoom : zooms) {
        const int range = rangeNm();
        const GeoPoint before = ground();
        zoom();
        EXPECT_NE(rangeNm(), range);
        EXPECT_LT(DistanceNm(before, ground()), 0.002 * rangeNm());
    }
    const int range = rangeNm();
    tap(button(TouchCommand::Aircraft));
    EXPECT_FALSE(isPanned());
    EXPECT_EQ(rangeNm(), range);
    screen_.setRange(1);
    drag(onPage(0, 0), onPage(80, 0));
    const auto looked = screen_.camera().lookAt();
    hand_.wheel(120, finger);
    EXPECT_EQ(screen_.camera().lookAt(), looked) << "there is no nearer range";
}

TEST_F(ScreenTest, AThrownMapGlidesOnUntilItRestsOrIsHeld) {
    screen_.showPage(PageId::NorthUp);
    fly(47, 10);
    const auto x = [&] { return whereIs(atDegrees(47, 10)).x; };
    /// Over 200 pixels in steps of 10 ms, then `restMs` without a move.
    const auto swipe = [&](int msPerStep, int restMs) {
        hand_.press(onPage(-100, 0));
        for (int moved = 0; moved <= 200; moved += 20) {
            hand_.move(onPage(-100 + moved, 0));
            clock_.advanceMs(msPerStep);
        }
        clock_.advanceMs(restMs);
        hand_.release(onPage(100, 0));
    };
    const auto frames = [&](int count) {
        for (int i = 0; i < count && hand_.wantsFrames(); ++i) {
            clock_.advanceMs(15);
            hand_.frame();
        }
    };
    swipe(10, 0);
    EXPECT_TRUE(hand_.wantsFrames());
    const double left = x();
    frames(1);
    const double first = x() - left;
    EXPECT_NEAR(first, 2.0 * 15, 2) << "as fast as the finger was";
    frames(10);
    const double before = x();
    frames(1);
    EXPECT_LT(x() - before, 0.7 * first);
    EXPECT_GT(x() - before, 0);
    frames(1000);
    EXPECT_FALSE(hand_.wantsFrames());
    EXPECT_NEAR(x() - left, 2.0 * 325, 20);
    for (const auto& [ms, rest] : {std::pair{10, 80}, {100, 0}}) {
        swipe(ms, rest);
        EXPECT_FALSE(hand_.wantsFrames()) << "it was put down, not thrown";
    }
    swipe(10, 0);
    frames(2);
    const double stopped = x();
    tap(onPage(0, 0));
    frames(5);
    EXPECT_EQ(x(), stopped);
    EXPECT_FALSE(screen_.card().isOpen()) << "a finger that stops the map has asked nothing";
    swipe(10, 0);
    screen_.showPage(PageId::Efis);
    frames(1);
    EXPECT_FALSE(hand_.wantsFrames());
}

TEST_F(ScreenTest, WhatCannotBeSavedIsSaidInPassing) {
    std::filesystem::remove(profile_.path());
    std::filesystem::create_directory(profile_.path());
    EXPECT_EQ(document_.userFixes().add("LAKE", atDegrees(47, 10)), "");
    ticks(1);
    EXPECT_EQ(screen_.message(), "Settings not saved: korvel.ini cannot be written");
    ticks(100);
    EXPECT_EQ(screen_.message(), "") << "told once";
}

TEST_F(ScreenTest, TheStatusLineStandsOnEveryPageAndNothingElseThere) {
    document_.flight().startSimulator({.position = atDegrees(47, 10)});
    ticks(1);
    const Rect line = screen_.areas().layout().status;
    EXPECT_EQ(line.width, 800);
    EXPECT_GE(line.height, 20);
    for (const PageId page : availablePages()) {
        screen_.showPage(page);
        EXPECT_EQ(screen_.areas().layout().status, line);
        EXPECT_GE(screen_.areas().layout().fields.y, line.bottom());
        EXPECT_GE(screen_.areas().page().y, line.bottom());
        EXPECT_FALSE(screen_.scene(screen_.data(), {}).trustMarks) << "not twice";
    }
}

TEST_F(ScreenTest, PanningEndsWithThePageAndWhenTheSimulatorStarts) {
    screen_.showPage(PageId::FlightPlan);
    EXPECT_EQ(screen_.placeToMark(), std::nullopt);
    screen_.lookAt(kField);
    EXPECT_EQ(screen_.page(), PageId::Map) << "the only place to look at something";
    EXPECT_EQ(screen_.placeToMark(), kField);
    screen_.goToNextPage();
    EXPECT_FALSE(isPanned());
    screen_.lookAt(kField);
    ticks(1);
    EXPECT_TRUE(isPanned());
    fly(47, 10);
    EXPECT_FALSE(isPanned());
    screen_.lookAt(kField);
    ticks(1);
    EXPECT_TRUE(isPanned()) << "it has not started anew";
    screen_.backToAircraft();
    EXPECT_EQ(screen_.placeToMark(), screen_.data().position);
}

TEST_F(ScreenTest, ZoomingPausesAutomaticZoomForHalfAMinute) {
    ASSERT_EQ(rangeNm(), 65);
    tap(button(TouchCommand::ZoomIn));
    EXPECT_EQ(rangeNm(), 40);
    EXPECT_EQ(screen_.message(), "Auto-zoom/view disabled for 30 secs.");
    ticks(9);
    EXPECT_NE(screen_.message(), "");
    const int paintings = paintings_;
    ticks(1);
    EXPECT_EQ(screen_.message(), "");
    EXPECT_GT(paintings_, paintings) << "or it would stay on the glass";
    ticks(49);
    EXPECT_TRUE(screen_.camera().rests());
    ticks(1);
    EXPECT_FALSE(screen_.camera().rests());
    EXPECT_EQ(screen_.message(), "Auto-zoom/view enabled");

    hand_.wheel(-240, onPage(100, 50));
    EXPECT_EQ(rangeNm(), 100);
    hand_.pinch(2.6, true, onPage(100, 50));
    EXPECT_EQ(rangeNm(), 40);
    screen_.backToAircraft();
    EXPECT_EQ(rangeNm(), 40);
    EXPECT_TRUE(screen_.camera().rests()) << "what the pilot has chosen is kept";
    screen_.storeState();
    EXPECT_EQ(profile_.getInt(kOptionsSection, "Range", 0), 40);
    screen_.showPage(PageId::FlightPlan);
    screen_.backToAircraft();
    EXPECT_EQ(screen_.page(), PageId::FlightPlan);
    tap(button(TouchCommand::Aircraft));
    EXPECT_EQ(screen_.page(), PageId::Map);
    ticks(60);
    change([](Settings& settings) { settings.autozoom = false; });
    screen_.zoom(-1);
    EXPECT_FALSE(screen_.camera().rests()) << "there is nothing to pause";
}

TEST_F(ScreenTest, PanningSaysOnceThatItPausesWhatActsByItself) {
    fly(47, 10);
    const struct { bool zoom, view; } automatic[] = {{true, false}, {false, true}, {false, false}};
    for (const auto& each : automatic) {
        change([&](Settings& settings) {
            settings.autozoom = each.zoom;
            settings.autoview = each.view;
        });
        screen_.backToAircraft();
        screen_.say("x");
        hand_.key(ScreenKey::Up);
        EXPECT_EQ(screen_.message() == "x", !each.zoom && !each.view);
        screen_.say("x");
        hand_.key(ScreenKey::Up);
        EXPECT_EQ(screen_.message(), "x") << "it is known";
        ticks(60);
        EXPECT_EQ(screen_.message(), "") << "the map is still elsewhere";
    }
}

TEST_F(ScreenTest, AutomaticZoomLeavesAloneWhatThePilotLooksAt) {
    ASSERT_EQ(document_.flight().plan().enterRoute("XNO"), "");
    fly(47.5, 10);
    screen_.setRange(250);
    ticks(5);
    EXPECT_EQ(rangeNm(), 250) << "closer only when it is sure";
    ticks(1);
    EXPECT_EQ(rangeNm(), 65);
    const struct {
        std::function<void()> begin, end;
    } cases[] = {
        {[&] { screen_.holdView(); }, [&] { screen_.backToAircraft(); }},
        {[&] { screen_.holdView(); }, [&] { screen_.choosePage(PageId::Map); }},
        {[&] { screen_.setMeasuring(true); }, [&] { hand_.key(ScreenKey::Cancel); }},
        {[&] { screen_.lookAt(kField); }, [&] { screen_.backToAircraft(); }},
        {[&] { hand_.wheel(120, {}), hand_.wheel(-120, {}); }, [&] { ticks(60); }},
        {[&] { screen_.showPage(PageId::Efis); }, [&] { screen_.showPage(PageId::Map); }},
    };
    int number = 0;
    for (const auto& [begin, end] : cases) {
        screen_.setRange(250);
        begin();
        ticks(8);
        EXPECT_EQ(rangeNm(), 250) << number;
        end();
        screen_.setRange(250);
        ticks(8);
        EXPECT_EQ(rangeNm(), 65) << number++;
    }
    EXPECT_FALSE(screen_.setRange(66));
    EXPECT_EQ(rangeNm(), 65);
}

TEST_F(ScreenTest, AutomaticViewComesNearTheDestinationUnlessThePilotChoosesAPage) {
    const auto flyToTheEnd = [&] {
        ASSERT_EQ(document_.flight().plan().enterRoute("XSO XFLD"), "");
        document_.flight().plan().flyTo(1);
    };
    change([](Settings& settings) { settings.apprMode = false; });
    fly(47, 10);
    flyToTheEnd();
    ticks(2);
    EXPECT_EQ(screen_.page(), PageId::MapHsi);
    screen_.choosePage(PageId::Map);
    ticks(3);
    EXPECT_EQ(screen_.page(), PageId::Map);
    document_.flight().plan().clear();
    ticks(60);
    flyToTheEnd();
    change([](Settings& settings) { settings.autoview = false; });
    ticks(3);
    EXPECT_EQ(screen_.page(), PageId::Map);
    change([](Settings& settings) { settings.autoview = true; });
    ticks(3);
    EXPECT_EQ(screen_.page(), PageId::MapHsi);
}

TEST_F(ScreenTest, TheRulerTakesHoldOfWhatLiesUnderTheFinger) {
    screen_.setRange(15);
    screen_.showPage(PageId::NorthUp);
    fly(47.02, 10.05);
    screen_.updateFeeds();
    const Point aircraft = whereIs(*screen_.data().position);
    const auto ruler = [&] { return *screen_.scene(screen_.data(), {}).measure; };
    screen_.setMeasuring(true);
    EXPECT_EQ(screen_.message(), "Measure: tap or drag from one point to another");
    drag({aircraft.x + 10, aircraft.y}, whereIs(kField));
    ASSERT_TRUE(ruler().from() && ruler().to());
    EXPECT_TRUE(ruler().from()->aircraft);
    EXPECT_EQ(ruler().from()->position, screen_.data().position);
    EXPECT_EQ(ruler().to()->name, "XFLD");
    EXPECT_LT(DistanceNm(ruler().to()->position, kField), 0.01);
    const Point aside{aircraft.x + 60, aircraft.y + 60};
    tap(aside);
    EXPECT_FALSE(ruler().from()->aircraft);
    EXPECT_NEAR(whereIs(ruler().from()->position).x, aside.x, 0.1);
    EXPECT_NEAR(whereIs(ruler().from()->position).y, aside.y, 0.1);
    EXPECT_FALSE(isPanned());
    EXPECT_EQ(asked(), Asked{}) << "a place is no more than an end of it";

    const Rect page = screen_.areas().page();
    tapOfPage(measureCloseBox(page.width, mapTextPx(page.width, page.height)).center());
    EXPECT_FALSE(screen_.isMeasuring());
    EXPECT_EQ(screen_.message(), "Measuring ended");
    screen_.say("x");
    screen_.setMeasuring(true);
    EXPECT_EQ(screen_.message(), "x") << "the hint was had";
    EXPECT_TRUE(hand_.key(ScreenKey::Cancel));
    EXPECT_FALSE(screen_.isMeasuring() || hand_.key(ScreenKey::Cancel));
    screen_.showPage(PageId::Efis);
    screen_.setMeasuring(true);
    EXPECT_EQ(screen_.page(), PageId::Map);
    screen_.showPage(PageId::Efis);
    EXPECT_FALSE(screen_.isMeasuring());
}

TEST_F(ScreenTest, PlacesOfTheMapAreTapped) {
    screen_.setRange(15);
    fly(47, 10);
    screen_.updateFeeds();
    const Point field = whereIs(kField);
    tap(Point{field.x + 15, field.y + 15});
    EXPECT_TRUE(card().starts_with("XFLD")) << card();
    screen_.closeCard();
    drag(field, {field.x + 80, field.y});
    EXPECT_EQ(card(), "");
    screen_.backToAircraft();
    screen_.setRange(15);
    screen_.showPage(PageId::Efis);
    tap(field);
    EXPECT_EQ(card(), "") << "no map";
    screen_.showPage(PageId::Map);
    screen_.databasesChanged();
    tap(field);
    EXPECT_TRUE(card().starts_with("N47")) << "rows of closed files mean nothing: " << card();
}

TEST_F(ScreenTest, NavaidsAreRotatedUnlessThePilotHasForbiddenIt) {
    change([](Settings& settings) { settings.rotateModes = {0, 4, 4}; });
    screen_.rotateNavaids();
    EXPECT_TRUE(screen_.message().starts_with("Navaids: ")) << screen_.message();
    const auto modes = document_.settings().rotateModes;
    EXPECT_NE(modes[0], 0);
    EXPECT_TRUE(modes[1] == 4 && modes[2] == 4);
    change([](Settings& settings) { settings.rotateNavaids = false; });
    screen_.rotateNavaids();
    EXPECT_EQ(screen_.message(), "Rotating navaids is off in the preferences");
    EXPECT_EQ(document_.settings().rotateModes, modes);
}

TEST_F(ScreenTest, TheMapShowsLessStepByStepAndSaysSo) {
    screen_.showPage(PageId::NorthUp);
    screen_.setRange(8);
    fly(47.1, 10);
    const auto shown = [&] {
        screen_.updateFeeds();
        RecordingCanvas canvas(screen_.areas().page().width, screen_.areas().page().height);
        const ColorScheme scheme;
        const MapColorCache colors(scheme);
        const CockpitData data = screen_.dataToShow();
        PagePainter(colors).paint(canvas, screen_.page(), screen_.scene(data, {}));
        return canvas.texts();
    };
    EXPECT_NE(shown().find("XFLD"), std::string::npos);
    EXPECT_EQ(shown().find("MAP:"), std::string::npos);
    screen_.declutterMap();
    ticks(12);  // the passing message goes
    EXPECT_NE(shown().find("XFLD"), std::string::npos);
    EXPECT_NE(shown().find("MAP: NO NAVAIDS"), std::string::npos);
    screen_.declutterMap();
    EXPECT_EQ(shown().find("XFLD"), std::string::npos);
    screen_.storeState();
    EXPECT_EQ(profile_.getInt(kOptionsSection, "Declutter", 0), 2);
    EXPECT_EQ(profile_.getInt(kOptionsSection, "MapMask2", 0), 134088702) << "the pilot's own choice stays";
    screen_.declutterMap();
    ticks(12);
    EXPECT_NE(shown().find("XFLD"), std::string::npos);
    EXPECT_EQ(shown().find("MAP:"), std::string::npos);
}

TEST_F(ScreenTest, TheProfileStandsUnderTheMapAndOnAPage) {
    ASSERT_EQ(document_.flight().plan().enterRoute("XNO"), "");
    fly(47.1, 10);
    const Rect whole = screen_.areas().page();
    const auto strip = [&] { return screen_.areas().layout().profile; };
    const auto profile = [&]() -> const ProfileContent& {
        screen_.updateFeeds();
        return *screen_.scene(screen_.data(), {}).profile;
    };
    EXPECT_EQ(strip().height, 0);
    EXPECT_TRUE(profile().line.points.empty()) << "nothing is cut for nobody";
    screen_.showProfile(true);
    EXPECT_GE(strip().height, 70);
    EXPECT_EQ(strip().y, screen_.areas().page().bottom());
    EXPECT_EQ(strip().bottom(), whole.bottom());
    EXPECT_LT(screen_.camera().viewport().aircraft().y, screen_.areas().page().height) << "not covered";
    screen_.setRange(15);
    EXPECT_EQ(profile().lengthNm, 30);
    ASSERT_EQ(profile().route.stops.size(), 2U);
    EXPECT_EQ(profile().route.stops[0].position, screen_.data().position);
    EXPECT_EQ(profile().route.stops[1].ident, "XNO");

    screen_.showPage(PageId::Hsi);
    EXPECT_EQ(strip().height, 0) << "under maps alone";
    EXPECT_TRUE(profile().line.points.empty());
    screen_.showPage(PageId::Map);
    tap(strip());
    EXPECT_EQ(screen_.page(), PageId::Profile);
    EXPECT_EQ(screen_.areas().page(), whole);
    tap(button(TouchCommand::ZoomIn));
    hand_.wheel(120, whole.center());
    EXPECT_EQ(rangeNm(), 4) << "the page has a range, too";
    EXPECT_EQ(profile().lengthNm, 8);
    screen_.showProfile(true);
    EXPECT_EQ(screen_.page(), PageId::Map) << "where it is to be seen";
    change([](Settings& settings) { settings.mapMask = 0x7FE07FE; });
    ticks(1);
    EXPECT_EQ(strip().height, 0) << "the preferences have taken it away";
    EXPECT_FALSE(screen_.hasProfile());
}

}}  // namespace korvel
