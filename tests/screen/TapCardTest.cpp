#include <algorithm>

#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "paint/ColorScheme.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "screen/PagePainter.h"
#include "screen/ScreenFixture.h"

namespace korvel { namespace {

/// Over the strip XFLD at 15 NM, with airspaces and a mast.
class TapCardTest : public ScreenTest {
 protected:
    void SetUp() override {
        folder_.write("air.txt",
            "AC C\nAN HIGH\nAL 3700\nAH FL95\nV X=47:00N 010:00E\nDC 20\n"
            "AC D\nAN LOW\nAL GND\nAH 1300\nAF 118.1\nV X=47:00N 010:10E\nDC 3\n");
        folder_.write("masts.csv", "name,lat,lon,agl\nMast,47.05,10.1,900\n");
        document_.ground().open({folder_.path()});
        change([](Settings& settings) { settings.autozoom = false; });
        screen_.setRange(15);
        screen_.showPage(PageId::NorthUp);
        fly(47.02, 9.95, 120);
        look();
    }
    /// As a painting does.
    std::string look() {
        for (int i = 0; i < 4; ++i) screen_.updateFeeds();
        RecordingCanvas canvas(screen_.areas().page().width, screen_.areas().page().height);
        const CockpitData data = screen_.dataToShow();
        PagePainter(colors_).paint(canvas, screen_.page(), screen_.scene(data, {}));
        return canvas.texts();
    }
    std::string said() const { return screen_.message(); }
    std::string plan() const {
        std::string idents;
        for (const PlanWaypoint& entry : document_.flight().plan().entries())
            idents += std::string(entry.record->ident.view()) + " ";
        return idents;
    }
    std::string flownTo() const { return document_.flight().navigation().state().activeName; }
    void press(CardPart part) { tap(ofCard(part)); }

    ColorScheme scheme_;
    MapColorCache colors_{scheme_};
    const GeoPoint field_ = atDegrees(47.11, 10);
    const GeoPoint bare_ = atDegrees(46.9, 10);
};

TEST(TapCard, FollowsOtherAircraftAndLeavesWhatIsGone) {
    const auto other = [](double latDeg) {
        auto list = std::make_shared<TrafficList>(1);
        list->front().name = "N123";
        list->front().position = atDegrees(latDeg, 10);
        return list;
    };
    CockpitData data;
    data.position = atDegrees(47, 10);
    data.traffic = other(47.1);
    const TapThing traffic{.kind = TapKind::Traffic, .position = atDegrees(47.1, 10), .ident = "N123"};
    const TapThing ground{.kind = TapKind::Ground, .position = atDegrees(47, 10)};
    TapCard card;
    card.open({traffic, ground}, {.width = 800, .height = 300}, {}, false);
    EXPECT_FALSE(card.canPress(CardPart::Direct, data) || card.canPress(CardPart::Insert, data)) << "it flies on";
    EXPECT_TRUE(card.canPress(CardPart::Info, data));
    card.moveFocus(1, data);
    EXPECT_EQ(card.focus(), CardPart::Info) << "what does nothing is left out";
    data.traffic = other(47.2);
    card.follow(data);
    EXPECT_EQ(card.shown(data, {}).view.figures[1].value, "12 nm");
    card.step(1);
    EXPECT_TRUE(card.canPress(CardPart::Direct, data));
    data.traffic = nullptr;
    card.follow(data);
    EXPECT_EQ(card.thing().kind, TapKind::Ground);
    EXPECT_FALSE(card.canPress(CardPart::Next, data)) << "it is alone now";
    data.position.reset();
    EXPECT_FALSE(card.canPress(CardPart::Direct, data)) << "from nowhere";
    EXPECT_EQ(card.shown(data, {}).view.figures[1].value, "---");
    card.open({traffic, ground}, {.width = 800, .height = 300}, {}, false);
    card.follow(data);
    EXPECT_FALSE(card.isOpen()) << "a thumb on its way would press for another thing";
}

TEST_F(TapCardTest, WhatIsTappedHasItsCardAndWhatItTells) {
    const struct {
        GeoPoint at;
        std::string words;
    } cases[] = {
        {field_, "XFLD Field; Elev 1000 ft; RWY 6076 ft  18/36 1/2"},
        {bare_, "N46°54.00'  E010°00.00'; Ground ---; C HIGH  37 / FL95"},
        {atDegrees(47.0, 10 + 10.0 / 60),
            "N47°00.00'  E010°10.00'; Ground ---; D LOW  GND / 13  118.1; C HIGH  37 / FL95"},
        {atDegrees(47.05, 10.1), "Mast; top 900 ft, 900 ft above ground 1/2"},
        {atDegrees(46.95, 10 + 10.0 / 60), "D LOW; GND / 13; 118.1 1/3"},
    };
    for (const auto& [at, words] : cases) {
        screen_.closeCard();
        tap(whereIs(at));
        EXPECT_EQ(card(), words);
    }
    EXPECT_EQ(asked(), Asked{}) << "no sheet";
    press(CardPart::Next);
    EXPECT_EQ(card(), "C HIGH; 37 / FL95 2/3");
    press(CardPart::Next);
    press(CardPart::Next);
    EXPECT_EQ(card(), "D LOW; GND / 13; 118.1 1/3") << "around";
    const std::string painted = look();
    for (const char* words : {"BRG", "DIST", "ETE", "Direct", "Insert", "Info", "LOW", "118.1"})
        EXPECT_NE(painted.find(words), std::string::npos) << words;
    const auto figures = screen_.scene(screen_.data(), {}).card->view.figures;
    const double nm = DistanceNm(*screen_.data().position, screen_.card().thing().position);
    EXPECT_EQ(figures[1].value, distanceText(nm, DistanceUnit::NauticalMiles));
    EXPECT_EQ(figures[2].value, "0:0" + std::to_string(std::lround(nm / 120 * 60)));
}

TEST_F(TapCardTest, ATapElsewhereOrEscapePutsItAway) {
    const Point field = whereIs(field_);
    const std::function<void()> ways[] = {
        [&] { tap(whereIs(bare_)); },
        [&] { hand_.key(ScreenKey::Cancel); },
        [&] { screen_.showPage(PageId::Map), screen_.showPage(PageId::NorthUp); },
        [&] { tap(screen_.areas().layout().fields); },
        [&] { screen_.setMeasuring(true), hand_.key(ScreenKey::Cancel); },
    };
    for (const auto& way : ways) {
        tap(field);
        ASSERT_TRUE(screen_.card().isOpen());
        way();
        EXPECT_FALSE(screen_.card().isOpen()) << &way - ways;
    }
    tap(whereIs(bare_));
    tap(field);
    EXPECT_TRUE(card().starts_with("XFLD")) << "what is met has a card at once";
    const Rect area = screen_.card().area();
    tapOfPage({area.x + 3, area.y + 3});
    drag({area.x + 3, area.y + screen_.areas().page().y + 3}, {area.x + 90, area.y + 90});
    EXPECT_TRUE(screen_.card().isOpen()) << "the card itself is not elsewhere";
    EXPECT_FALSE(isPanned());
    hand_.press(ofCard(CardPart::Direct));
    hand_.release(ofCard(CardPart::Insert));
    EXPECT_TRUE(screen_.card().isOpen()) << "it has changed its mind";
    EXPECT_EQ(flownTo(), "");
}

TEST_F(TapCardTest, TwoTapsFlyDirectOrInsertIntoThePlan) {
    tap(whereIs(field_));
    press(CardPart::Direct);
    EXPECT_EQ(flownTo(), "Field");
    EXPECT_TRUE(said().starts_with("Direct to ")) << said();
    EXPECT_FALSE(screen_.card().isOpen());
    document_.flight().navigation().ClearNavigation();

    ASSERT_EQ(document_.flight().plan().enterRoute("XSO XNO"), "");
    ticks(2);
    tap(whereIs(field_));
    press(CardPart::Insert);
    EXPECT_EQ(plan(), "XSO XFLD XNO ");
    EXPECT_EQ(said(), "XFLD inserted before XNO");
    tap(whereIs(field_));
    press(CardPart::Insert);
    EXPECT_EQ(said(), "XFLD is in the plan already");
    EXPECT_TRUE(document_.flight().plan().undo());
    EXPECT_EQ(plan(), "XSO XNO ") << "in one step";
    tap(whereIs(field_));
    press(CardPart::Info);
    EXPECT_EQ(asked(), Asked{"place XFLD"});
}

TEST_F(TapCardTest, ALegIsFlownInsertedIntoAndOpened) {
    ASSERT_EQ(document_.flight().plan().enterRoute("XSO XNO"), "");
    ticks(2);
    const Point leg = whereIs(atDegrees(47.0, 10));
    tap(Point{leg.x + 8, leg.y});
    EXPECT_TRUE(card().starts_with("XSO to XNO; 84 nm")) << card();
    press(CardPart::Info);
    EXPECT_EQ(asked(), Asked{"row 1"});
    tap(leg);
    press(CardPart::Direct);
    EXPECT_EQ(flownTo(), "North");
    tap(leg);
    press(CardPart::Insert);
    EXPECT_EQ(plan(), "XSO F-1 XNO ");
    EXPECT_LT(DistanceNm(document_.flight().plan().entries()[1].position(), atDegrees(47.0, 10)), 0.1);
    tap(leg);
    EXPECT_TRUE(card().starts_with("F-1 N47°00.0' E010°00.0'")) << "a waypoint without a chart's place: " << card();
    document_.flight().plan().clear();
    ticks(1);
    screen_.closeCard();
    tap(whereIs(atDegrees(46.95, 10)));
    EXPECT_TRUE(card().starts_with("N46")) << card();
}

TEST_F(TapCardTest, ALongPressFliesDirectAndATapDoesNot) {
    hold(whereIs(bare_), 400);
    EXPECT_EQ(flownTo(), "") << "not yet";
    EXPECT_TRUE(hand_.wantsFrames());
    hand_.release(whereIs(bare_));
    EXPECT_TRUE(screen_.card().isOpen());
    hold(whereIs(bare_));
    EXPECT_EQ(flownTo(), "N46°54.0' E010°00.0'");
    EXPECT_FALSE(screen_.card().isOpen() || hand_.wantsFrames());
    hand_.move({whereIs(bare_).x + 50, whereIs(bare_).y});
    hand_.release({whereIs(bare_).x + 50, whereIs(bare_).y});
    EXPECT_FALSE(screen_.card().isOpen() || isPanned()) << "the finger has done its work";
    hold(whereIs(field_));
    hand_.release(whereIs(field_));
    EXPECT_EQ(flownTo(), "Field");
    for (const Rect& where : {screen_.areas().layout().fields, button(TouchCommand::ZoomIn)}) {
        hand_.press(where.center());
        EXPECT_FALSE(hand_.wantsFrames()) << "only the map can be held";
        hand_.release({});
    }
}

TEST_F(TapCardTest, AHeldLegOrWaypointIsPulledElsewhere) {
    ASSERT_EQ(document_.flight().plan().enterRoute("XSO XNO"), "");
    ticks(2);
    const auto pull = [&](Point from, Point to) {
        hold(from);
        hand_.move({(from.x + to.x) / 2, (from.y + to.y) / 2});
        hand_.move(to);
    };
    const Point leg = whereIs(atDegrees(46.9, 10));
    const Point aside{leg.x + 120, leg.y};
    const GeoPoint ground = screen_.camera().projection()->unproject(screen_.areas().onPage(aside));
    drag(leg, aside);
    EXPECT_EQ(plan(), "XSO XNO ");
    EXPECT_TRUE(isPanned()) << "without a rest it is the map that goes with the finger";
    screen_.backToAircraft();

    pull(leg, aside);
    EXPECT_NE(look().find("Total"), std::string::npos);
    EXPECT_EQ(plan(), "XSO XNO ") << "not before it is dropped";
    hand_.release(aside);
    EXPECT_EQ(plan(), "XSO F-1 XNO ");
    EXPECT_EQ(said(), "F-1 inserted before XNO");
    EXPECT_LT(DistanceNm(document_.flight().plan().entries()[1].position(), ground), 0.1);
    EXPECT_FALSE(isPanned() || screen_.card().isOpen());
    EXPECT_FALSE(document_.flight().navigation().directLeg());

    const Point field = whereIs(field_);
    pull(whereIs(document_.flight().plan().entries()[1].position()), {field.x + 10, field.y});
    EXPECT_NE(look().find("XFLD\n"), std::string::npos);
    hand_.release({field.x + 10, field.y});
    EXPECT_EQ(plan(), "XSO XFLD XNO ");
    EXPECT_EQ(said(), "XFLD instead of F-1");
    EXPECT_TRUE(document_.flight().plan().undo());
    EXPECT_EQ(plan(), "XSO F-1 XNO ") << "in one step";
    EXPECT_TRUE(document_.flight().plan().redo());
    screen_.refresh();

    const std::function<void()> ends[] = {
        [&] { EXPECT_TRUE(hand_.key(ScreenKey::Cancel)); }, [&] { hand_.pinch(1.0, true, aside); },
        [&] { screen_.showPage(PageId::Map), screen_.showPage(PageId::NorthUp); },
        [&] { document_.flight().plan().clear(); },  // another plan: nothing to pull any more
    };
    for (const auto& end : ends) {
        pull(field, aside);
        ASSERT_TRUE(screen_.holdsPlan());
        const std::string before = plan();
        end();
        hand_.move({aside.x + 30, aside.y});
        hand_.release(aside);
        EXPECT_TRUE(plan() == before || plan().empty()) << &end - ends;
        EXPECT_FALSE(screen_.holdsPlan() || isPanned() || screen_.card().isOpen()) << &end - ends;
    }
    ASSERT_EQ(document_.flight().plan().enterRoute("XSO XFLD XNO"), "");
    document_.flight().plan().flyTo(1);
    ticks(1);
    pull(field, aside);
    ASSERT_TRUE(screen_.holdsPlan());
    ASSERT_EQ(document_.flight().plan().enterRoute("XSO XNO"), "");
    hand_.release(aside);
    EXPECT_EQ(plan(), "XSO XNO ") << "what was held is not in this plan";
    ASSERT_EQ(document_.flight().plan().enterRoute("XSO XFLD XNO"), "");
    document_.flight().plan().flyTo(1);
    ticks(1);
    hold(field);
    hand_.release(field);
    EXPECT_TRUE(card().starts_with("XFLD")) << "held and let go is tapped";
    pull(field, {field.x + 40, field.y});
    hand_.move(field);
    hand_.release(field);
    EXPECT_EQ(plan(), "XSO XFLD XNO ") << "back to where it was";
    pull(leg, field);
    hand_.release(field);
    EXPECT_EQ(plan(), "XSO XFLD XNO ") << "a leg to where it leads";
    screen_.showPage(PageId::Map);
    screen_.setRange(100);
    look();
    pull(whereIs(field_), whereIs(atDegrees(48.0, 10)));
    hand_.release(whereIs(atDegrees(48.0, 10)));
    EXPECT_EQ(plan(), "XSO XNO ") << "a waypoint onto the next one";
}

TEST_F(TapCardTest, KeysWalkTheCardAndPressItsParts) {
    screen_.lookAt(field_);
    look();
    EXPECT_FALSE(hand_.key(ScreenKey::Next)) << "without a card Tab is the window's";
    EXPECT_TRUE(hand_.key(ScreenKey::Open));
    EXPECT_TRUE(card().starts_with("XFLD")) << "of the map's middle";
    EXPECT_EQ(screen_.card().focus(), CardPart::Direct);
    for (const CardPart part : {CardPart::Insert, CardPart::Info, CardPart::Next, CardPart::Direct}) {
        hand_.key(ScreenKey::Next);
        EXPECT_EQ(screen_.card().focus(), part);
    }
    hand_.key(ScreenKey::Down);
    EXPECT_TRUE(card().starts_with("C HIGH"));
    hand_.key(ScreenKey::Up);
    hand_.key(ScreenKey::Previous);
    hand_.key(ScreenKey::Previous);
    EXPECT_EQ(screen_.card().focus(), CardPart::Info);
    EXPECT_TRUE(hand_.key(ScreenKey::Open));
    EXPECT_EQ(asked(), Asked{"place XFLD"});
    tap(whereIs(field_));
    EXPECT_EQ(screen_.card().focus(), std::nullopt) << "a finger has no need of it";
    hand_.key(ScreenKey::Open);
    EXPECT_EQ(flownTo(), "") << "the first one only shows where the keys are";
    hand_.key(ScreenKey::Open);
    EXPECT_EQ(flownTo(), "Field");
}

TEST_F(TapCardTest, TheNearestAirportIsTwoTapsAwayToo) {
    screen_.showPage(PageId::NearestAirport);
    ticks(1);
    const Rect page = screen_.areas().page();
    tapOfPage(layOutRowList(page.width, page.height, 1, {}).rows.front().center());
    EXPECT_TRUE(card().starts_with("XFLD Field")) << card();
    press(CardPart::Direct);
    EXPECT_EQ(flownTo(), "Field");
    EXPECT_TRUE(hand_.key(ScreenKey::Down) && hand_.key(ScreenKey::Open));
    EXPECT_EQ(screen_.card().focus(), CardPart::Direct);
    hand_.key(ScreenKey::Cancel);
    tapOfPage({page.width / 2, page.height - 5});
    EXPECT_FALSE(screen_.card().isOpen());
}

TEST_F(TapCardTest, ANameStandsForItsSymbol) {
    screen_.closeCard();
    look();
    RecordingCanvas canvas(screen_.areas().page().width, screen_.areas().page().height);
    PagePainter(colors_).paint(canvas, screen_.page(), screen_.scene(screen_.data(), {}));
    const auto* label = canvas.findText("XFLD");
    ASSERT_NE(label, nullptr);
    const Point end{label->area.right() - 2, label->area.center().y};
    const Point symbol = whereIs(field_);
    ASSERT_GT(std::hypot(end.x - symbol.x, end.y + screen_.areas().page().y - symbol.y), 26);
    tapOfPage(end);
    EXPECT_TRUE(card().starts_with("XFLD Field")) << card();
}

TEST_F(TapCardTest, ItNeverCoversTheAircraft) {
    for (const Point size : {Point{640, 480}, {800, 480}, {1280, 800}, {480, 800}, {1920, 1080}}) {
        screen_.resize(size.x, size.y, 0);
        const Rect page = screen_.areas().page();
        const Point aircraft = screen_.camera().projection()->project(*screen_.data().position);
        for (double x = 10; x < page.width; x += 60)
            for (double y = 10; y < page.height; y += 45) {
                screen_.closeCard();
                tapOfPage({x, y});
                ASSERT_TRUE(screen_.card().isOpen());
                const Rect area = screen_.card().area();
                EXPECT_TRUE(area.x >= 0 && area.y >= 0 && area.right() <= page.width && area.bottom() <= page.height);
                EXPECT_FALSE(overlap(area, {aircraft.x - 12, aircraft.y - 12, 24, 24}))
                    << size.x << " " << x << " " << y;
                for (const Rect& part : screen_.card().layout().buttons) {
                    EXPECT_GE(std::min(part.width, part.height), 48);
                    EXPECT_TRUE(area.contains(part.center()));
                }
            }
    }
    // The aircraft comes to where the card stands.
    screen_.resize(800, 480, 0);
    screen_.lookAt(atDegrees(47.06, 9.95));
    look();
    screen_.closeCard();
    tap(onPage(0, 20));
    const Rect before = screen_.card().area();
    const GeoPoint under = screen_.camera().projection()->unproject(before.center());
    ticks(1);
    EXPECT_EQ(screen_.card().area(), before) << "it stays where it is";
    fly(under.lat * kRadToDeg, under.lon * kRadToDeg, 10);
    screen_.lookAt(atDegrees(47.06, 9.95));
    ticks(1);
    EXPECT_TRUE(screen_.card().isOpen());
    EXPECT_FALSE(screen_.card().area().contains(screen_.camera().projection()->project(*screen_.data().position)));
}

}}  // namespace korvel
