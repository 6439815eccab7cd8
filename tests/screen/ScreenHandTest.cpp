#include "pages/ApproachBox.h"
#include "pages/EfisPage.h"
#include "screen/NightSwitch.h"
#include "screen/PageCycle.h"
#include "screen/ScreenFixture.h"

namespace korvel { namespace {

TEST_F(ScreenTest, AButtonActsWhenTheFingerLeavesItWhereItCameDown) {
    const auto isPressed = [&](TouchCommand command) {
        const auto buttons = hand_.buttons();
        return std::ranges::find(buttons, command, &TouchButton::command)->pressed;
    };
    const Point zoomIn = button(TouchCommand::ZoomIn).center();
    hand_.press(zoomIn);
    EXPECT_EQ(rangeNm(), 65);
    EXPECT_TRUE(isPressed(TouchCommand::ZoomIn) && !isPressed(TouchCommand::ZoomOut));
    hand_.release(zoomIn);
    EXPECT_EQ(rangeNm(), 40);
    EXPECT_FALSE(isPressed(TouchCommand::ZoomIn));
    drag(zoomIn, button(TouchCommand::ZoomOut).center());  // changed its mind
    drag(onPage(0, 0), zoomIn);
    EXPECT_EQ(rangeNm(), 40);
    tap(button(TouchCommand::ZoomOut));
    EXPECT_EQ(rangeNm(), 65);
    for (const TouchCommand command : {TouchCommand::DirectTo, TouchCommand::Nearest, TouchCommand::Plan}) {
        tap(button(command));
        EXPECT_EQ(asked(), Asked{std::string(touchWord(command))});
    }
    tap(button(TouchCommand::Page));
    EXPECT_EQ(screen_.page(), availablePages()[1]);
    EXPECT_EQ(screen_.message(), "Tap a field to change it");
}

TEST_F(ScreenTest, ButtonsThatDoNothingAreGrey) {
    const auto enabled = [&] {
        std::string words;
        for (const TouchButton& button : hand_.buttons())
            if (button.command >= TouchCommand::Aircraft && button.enabled)
                words.append(touchWord(button.command)).append(" ");
        return words;
    };
    const auto word = [](TouchCommand command) { return std::string(touchWord(command)) + " "; };
    const std::string aircraft = word(TouchCommand::Aircraft);
    const std::string out = word(TouchCommand::ZoomOut);
    const std::string in = word(TouchCommand::ZoomIn);
    EXPECT_EQ(enabled(), out + in);
    for (const auto& [range, words] : {std::pair{1, out}, {1000, in}, {65, out + in}}) {
        screen_.setRange(range);
        EXPECT_EQ(enabled(), words) << range;
    }
    screen_.lookAt(atDegrees(47, 10));
    EXPECT_EQ(enabled(), aircraft + out + in);
    screen_.showPage(PageId::Efis);
    EXPECT_EQ(enabled(), aircraft);
    hand_.wheel(120, {});
    EXPECT_FALSE(hand_.key(ScreenKey::Left));
    EXPECT_EQ(rangeNm(), 65);
    tap(button(TouchCommand::Aircraft));
    EXPECT_EQ(screen_.page(), PageId::Map);
}

TEST_F(ScreenTest, RowsOfThePlanAreMarkedOpenedAndScrolled) {
    screen_.showPage(PageId::FlightPlan);
    tap(screen_.areas().page());
    EXPECT_EQ(asked(), Asked{std::string(touchWord(TouchCommand::Plan))}) << "there is none yet";
    EXPECT_FALSE(hand_.key(ScreenKey::Down) || hand_.key(ScreenKey::Open));
    std::string plan;
    for (int i = 0; i < 40; ++i) plan += "f.A" + std::to_string(i) + " 47." + std::to_string(10 + i) + " 10.0\r\n";
    ASSERT_EQ(document_.flight().plan().open(folder_.write("long.fp", plan)), "");
    screen_.refresh();
    EXPECT_FALSE(hand_.key(ScreenKey::Open)) << "nothing is marked";
    for (const ScreenKey key : {ScreenKey::Down, ScreenKey::Down, ScreenKey::Down, ScreenKey::Up})
        EXPECT_TRUE(hand_.key(key));
    hand_.wheel(-120, {});
    EXPECT_TRUE(hand_.key(ScreenKey::Open));
    EXPECT_EQ(asked(), Asked{"row 2"});

    const Rect page = screen_.areas().page();
    const FlightPlanRows rows(page.width, page.height, 40);
    const auto tapRow = [&](std::size_t row, std::size_t first) {
        tapOfPage(rows.row(row, first).center());
        return asked();
    };
    const std::size_t first = *screen_.lists().plan().firstRow;
    EXPECT_EQ(tapRow(first + 1, first), Asked{"row " + std::to_string(first + 1)});
    // In small steps of a finger, upwards.
    hand_.press(onPage(0, 100));
    for (int moved = 13; moved <= 90; moved += 7) hand_.move(onPage(0, 100 - moved));
    hand_.release(onPage(0, 10));
    EXPECT_EQ(*screen_.lists().plan().firstRow, first + 2);
    EXPECT_EQ(tapRow(first + 3, first + 2), Asked{"row " + std::to_string(first + 3)});
    screen_.showPage(PageId::FlightPlan);
    EXPECT_FALSE(hand_.key(ScreenKey::Open)) << "shown anew";
}

TEST_F(ScreenTest, WhatTheEfisShowsItselfLeavesItsFieldToTheNext) {
    const std::vector<NavFieldId> usual = screen_.shownFields();
    ASSERT_EQ(usual.front(), NavFieldId::GroundSpeed);
    screen_.showPage(PageId::Efis);
    const std::vector<NavFieldId> shown = screen_.shownFields();
    EXPECT_EQ(shown.front(), NavFieldId::Bearing);
    EXPECT_EQ(std::ranges::count_if(shown, isOnEfisPage), 0);
    EXPECT_GE(shown.size(), 5U);
    const Rect strip = screen_.areas().layout().fields;
    tap(Point{strip.x + 5, strip.y + 5});
    EXPECT_EQ(asked(), Asked{"field 2"}) << "counted as on every page";
    screen_.showPage(PageId::Map);
    EXPECT_EQ(screen_.shownFields(), usual);
}

TEST_F(ScreenTest, AHeldRowOfThePlanIsCarriedToAnotherPlace) {
    const auto enter = [&](int count) {
        std::string plan;
        for (int i = 0; i < count; ++i)
            plan += "f.A" + std::to_string(i) + " " + std::to_string(40 + i) + ".0 10.0\r\n";
        ASSERT_EQ(document_.flight().plan().open(folder_.write("rows.fp", plan)), "");
        screen_.showPage(PageId::FlightPlan);
    };
    const auto order = [&] {
        std::string idents;
        for (const PlanWaypoint& entry : document_.flight().plan().entries()) idents += entry.record->ident.view();
        return idents;
    };
    const auto middle = [&](std::size_t row, std::size_t count) {
        const Rect page = screen_.areas().page();
        const Point at = FlightPlanRows(page.width, page.height, count).row(row, 0).center();
        return Point{at.x + page.x, at.y + page.y};
    };
    const auto carry = [&](std::size_t from, std::size_t to) {
        hold(middle(from, 4));
        hand_.move({middle(to, 4).x, middle(to, 4).y - 5});
        hand_.move(middle(to, 4));
    };
    enter(4);
    const struct {
        std::size_t from, to;
        const char* order;
    } cases[] = {{0, 2, "A1A2A0A3"}, {3, 0, "A3A0A1A2"}, {1, 2, "A0A2A1A3"}, {2, 2, "A0A1A2A3"}};
    for (const auto& [from, to, wanted] : cases) {
        carry(from, to);
        EXPECT_EQ(order(), "A0A1A2A3") << "not before it is put down";
        EXPECT_EQ(screen_.lists().plan().lifted->to, to);
        hand_.release(middle(to, 4));
        EXPECT_EQ(order(), wanted);
        EXPECT_EQ(screen_.message() == "A" + std::to_string(from) + " moved", from != to);
        screen_.say("");
        EXPECT_EQ(document_.flight().plan().undo(), from != to);
        screen_.refresh();
    }
    carry(0, 2);
    EXPECT_TRUE(hand_.key(ScreenKey::Cancel));
    hand_.release(middle(2, 4));
    carry(0, 2);
    document_.flight().plan().reverse();
    screen_.refresh();
    hand_.release(middle(2, 4));
    EXPECT_EQ(order(), "A3A2A1A0") << "another plan has come under the finger";
    EXPECT_EQ(asked(), Asked{}) << "a row that is held is not opened";

    enter(40);
    hold(middle(1, 40));
    const Rect page = screen_.areas().page();
    hand_.move({page.center().x, page.bottom() - 2});
    EXPECT_TRUE(hand_.wantsFrames());
    for (int i = 0; i < 100; ++i) {
        clock_.advanceMs(100);
        hand_.frame();
    }
    hand_.release({page.center().x, page.bottom() - 2});
    EXPECT_TRUE(order().ends_with("A38A39A1")) << order();
}

TEST_F(ScreenTest, FieldsAreTappedChangedAndKept) {
    const Rect strip = screen_.areas().layout().fields;
    tap(Point{strip.x + 5, strip.y + 5});
    EXPECT_EQ(asked(), Asked{"field 0"});
    tap(Point{strip.right() - 5, strip.bottom() - 5});
    EXPECT_EQ(asked(), Asked{"field 5"}) << "the altitude, for which the fifth one makes room";
    const NavFieldId first = screen_.field(0);
    const NavFieldId second = screen_.field(1);
    screen_.setField(0, second);
    EXPECT_EQ(screen_.field(0), second);
    EXPECT_EQ(screen_.field(1), first);
    screen_.showPage(PageId::Hsi);
    screen_.storeState();
    const Screen later(document_, profile_, letters_);
    EXPECT_EQ(later.page(), PageId::Hsi);
    EXPECT_EQ(later.field(0), second);
}

TEST_F(ScreenTest, AlarmsAreTappedAwayWhereTheyStand) {
    for (const char* words : {"FUEL", "TRAFFIC"})
        document_.flight().alarms().add({.condition = [words](bool) { return words; }});
    EXPECT_FALSE(screen_.acknowledgeAlarm());
    fly(47, 10);
    const auto tapAlarm = [&](std::size_t place) {
        tapOfPage(screen_.areas().alarms().areas.at(place).center());
        return screen_.data().alarms;
    };
    using Alarms = std::vector<ShownAlarm>;
    EXPECT_EQ(tapAlarm(1), Alarms{{"FUEL"}});
    const double whole = screen_.areas().page().height;
    screen_.showPage(PageId::Efis);
    EXPECT_LT(screen_.areas().page().height, whole - 20) << "a strip of its own";
    EXPECT_EQ(screen_.areas().pageWithAlarms().height, whole);
    EXPECT_EQ(tapAlarm(0), Alarms{});
    EXPECT_EQ(screen_.areas().page().height, whole);
    EXPECT_EQ(asked(), Asked{});
}

TEST_F(ScreenTest, AnApproachIsToldAndItsBoxTapped) {
    ASSERT_EQ(document_.flight().plan().enterRoute("XSO XFLD"), "");
    fly(47, 10, 90);
    EXPECT_EQ(screen_.message(), "Next: XFLD Field") << "XSO lies behind";
    for (int tick = 0; tick < 30 && !screen_.data().approach; ++tick) ticks(1);
    EXPECT_EQ(screen_.message(), "Approach to runway 36 at XFLD");
    screen_.showPage(PageId::Hsi);
    const Rect page = screen_.areas().page();
    const Point box = approachBox(page.width, page.height).center();
    tapOfPage(box);
    EXPECT_EQ(asked(), Asked{"approach"});
    screen_.showPage(PageId::Efis);
    tapOfPage(box);
    EXPECT_EQ(asked(), Asked{});
}

TEST_F(ScreenTest, TheBarIsTappedAwayInFullScreenOnly) {
    const auto tapTwice = [&] { tap(onPage(0, 0)), tap(onPage(0, 0)); };
    tapTwice();
    EXPECT_EQ(asked(), Asked{});
    const double height = screen_.areas().page().height;
    screen_.setBarMayHide(true);
    EXPECT_EQ(screen_.message(), "Tap the map twice to hide the buttons, and once for them");
    tap(onPage(0, 0));
    EXPECT_EQ(asked(), Asked{}) << "the first one tells what is there";
    tap(onPage(0, 0));
    EXPECT_FALSE(screen_.isBarShown());
    EXPECT_GT(screen_.areas().page().height, height);
    EXPECT_TRUE(screen_.areas().layout().buttons.empty());
    tap(onPage(0, 0));
    EXPECT_TRUE(screen_.isBarShown());
    EXPECT_EQ(screen_.areas().page().height, height);
    tapTwice();
    screen_.say("x");
    screen_.setBarMayHide(false);
    EXPECT_EQ(screen_.areas().page().height, height);
    screen_.setBarMayHide(true);
    EXPECT_EQ(screen_.message(), "x") << "a hint is given once";
    Screen later(document_, profile_, letters_);
    later.setBarMayHide(true);
    EXPECT_EQ(later.message(), "") << "once for every profile";
    change([](Settings& settings) { settings.showHints = false; });
    screen_.choosePage(PageId::Map);
    EXPECT_EQ(screen_.message(), "x") << "not wanted";
}

TEST(NightSwitch, GoesBackToTheDaysScheme) {
    NightSwitch night;
    EXPECT_EQ(night.other(), nightSchemeName());
    night.show(glassSchemeName());
    EXPECT_EQ(night.other(), nightSchemeName()) << "dark, but not for the night";
    night.show("Own");
    EXPECT_EQ(night.other(), nightSchemeName());
    night.show(nightSchemeName());
    EXPECT_EQ(night.other(), "Own");
}

}}  // namespace korvel
