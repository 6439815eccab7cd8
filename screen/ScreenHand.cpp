#include "screen/ScreenHand.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "map/layers/MeasureLayer.h"
#include "pages/ApproachBox.h"
#include "paint/TypeSizes.h"
#include "screen/Screen.h"

namespace korvel {
namespace {

/// A finger that moves less than this has tapped.
constexpr double kTapPixels = 12;
/// A list moves by a row for each of these.
constexpr double kScrollPixels = 40;
/// An arrow key moves the map by this share of the page's shorter side.
constexpr double kKeyShare = 1.0 / 8;
/// A finger that rests so long means more than a tap.
constexpr std::int64_t kHoldMs = 550;
/// A list goes on by a row so often under a row that is held at its end.
constexpr std::int64_t kCarryMs = 200;

}  // namespace

// The touch bar

std::vector<TouchButton> ScreenHand::buttons() const {
    std::vector<TouchButton> buttons;
    buttons.reserve(kTouchBar.size());
    for (const TouchCommand command : kTouchBar)
        buttons.push_back({command, canRun(command), finger_ && finger_->button == buttons.size()});
    return buttons;
}

bool ScreenHand::canRun(TouchCommand command) const {
    switch (command) {
        case TouchCommand::Aircraft:
            return screen_.camera().isAway();
        case TouchCommand::ZoomIn:
            return screen_.camera().canZoomIn();
        case TouchCommand::ZoomOut:
            return screen_.camera().canZoomOut();
        default:
            return true;
    }
}

void ScreenHand::run(TouchCommand command) {
    switch (command) {
        case TouchCommand::Page:
            return screen_.goToNextPage();
        case TouchCommand::Aircraft:
            return screen_.showAircraft();
        case TouchCommand::ZoomIn:
            return screen_.zoom(1);
        case TouchCommand::ZoomOut:
            return screen_.zoom(-1);
        default:
            if (onTouch)
                onTouch(command);
    }
}

// Fingers

void ScreenHand::press(Point at) {
    const ScreenAreas& areas = screen_.areas();
    finger_ = Finger{.start = at,
                     .last = at,
                     .button = areas.layout().buttonAt(at),
                     .stops = glide_.moves(),
                     .sinceMs = screen_.nowMs()};
    glide_.stop();
    const TapCard& card = screen_.card();
    finger_->card = card.isOpen() && card.area().contains(areas.onPage(at));
    if (finger_->card) {
        finger_->part = card.layout().partAt(areas.onPage(at));
        return screen_.pressCard(finger_->part);
    }
    if (screen_.isMeasuring() && areas.page().contains(at) && screen_.camera().projection())
        holdRuler(areas.onPage(at));
    screen_.changed();
}

/// `at` counts from the page's corner.
void ScreenHand::holdRuler(Point at) {
    const Rect& page = screen_.areas().page();
    if (measureCloseBox(page.width, mapTextPx(page.width, page.height)).contains(at)) {
        finger_.reset();
        return screen_.setMeasuring(false);
    }
    finger_->grip = Grip::Ruler;
    screen_.pressRuler(at);
}

void ScreenHand::move(Point at) {
    if (!finger_)
        return;
    const Point start = finger_->start;
    finger_->moving = finger_->moving || std::hypot(at.x - start.x, at.y - start.y) > kTapPixels;
    if (!finger_->moving || finger_->button || finger_->card ||
        !screen_.areas().page().contains(start))
        return;
    if (finger_->grip != Grip::None)
        return carryOn(at);
    if (finger_->held)
        return;
    if (!screen_.camera().showsMap())
        return scroll(at);
    screen_.pan(std::exchange(finger_->last, at), at);
    glide_.note(at, screen_.nowMs());
}

/// What it holds goes with the finger.
void ScreenHand::carryOn(Point at) {
    finger_->last = at;
    const Point onPage = screen_.areas().onPage(at);
    if (finger_->grip == Grip::Ruler)
        return screen_.dragRuler(onPage);
    if (finger_->grip == Grip::Plan)
        return screen_.pullPlan(onPage);
    carriedMs_ = screen_.nowMs();
    screen_.carryRow(onPage);
}

/// Moves a list by whole rows, as the finger goes.
void ScreenHand::scroll(Point to) {
    const auto rows = static_cast<int>((finger_->last.y - to.y) / kScrollPixels);
    if (rows == 0)
        return;
    finger_->last = to;
    screen_.scrollList(rows);
}

void ScreenHand::release(Point at) {
    if (!finger_)
        return;
    const Finger finger = *finger_;
    finger_.reset();
    screen_.changed();
    if (finger.grip != Grip::None)
        return letGo(finger);
    if (finger.card) {
        screen_.pressCard(std::nullopt);
        if (finger.part &&
            screen_.card().layout().partAt(screen_.areas().onPage(at)) == finger.part)
            pressCard(*finger.part);
    } else if (finger.button) {
        // As on every button: a finger that slides off has changed its mind.
        if (screen_.areas().layout().buttonAt(at) == finger.button)
            run(kTouchBar.at(*finger.button));
    } else if (finger.moving) {
        glide_.release(screen_.nowMs());
    } else if (!finger.held && !finger.stops) {
        tap(finger.start);
    }
}

void ScreenHand::letGo(const Finger& finger) {
    if (finger.grip == Grip::Ruler)
        return screen_.releaseRuler();
    if (finger.grip == Grip::Row)
        return screen_.putRowDown();
    dropPlan(finger);
}

/// Of a part of the plan that was pulled nowhere the card says what it is.
void ScreenHand::dropPlan(const Finger& finger) {
    if (finger.moving)
        return screen_.dropPlan();
    const Point at = screen_.areas().onPage(finger.start);
    screen_.letPlanGo();
    screen_.openCard(screen_.thingsUnder(at), at);
}

// Between the events

void ScreenHand::frame() {
    const std::int64_t now = screen_.nowMs();
    if (canHold() && now - finger_->sinceMs >= kHoldMs) {
        finger_->held = true;
        hold(screen_.areas().onPage(finger_->start));
    }
    // A row that waits at the list's end has it move on.
    if (finger_ && finger_->grip == Grip::Row && finger_->moving && now - carriedMs_ >= kCarryMs)
        carryOn(finger_->last);
    if (!glide_.moves())
        return;
    if (screen_.camera().showsMap())
        screen_.pan({}, glide_.step(now));
    else
        glide_.stop();
}

bool ScreenHand::wantsFrames() const {
    return canHold() || glide_.moves() || (finger_ && finger_->grip == Grip::Row);
}

/// Whether a finger rests on what can be held.
bool ScreenHand::canHold() const {
    return finger_ && !finger_->moving && !finger_->button && !finger_->card && !finger_->held &&
           !finger_->stops && finger_->grip == Grip::None &&
           screen_.areas().page().contains(finger_->start) &&
           (screen_.camera().showsMap() || isOnRow());
}

/// Of the plan.
bool ScreenHand::isOnRow() const {
    return screen_.page() == PageId::FlightPlan &&
           screen_.lists().rowAt(screen_.listPage(), screen_.areas().onPage(finger_->start));
}

/// A long press takes hold of the plan, and where there is none of it flies direct to what is
/// there: a place or the bare ground.
void ScreenHand::hold(Point at) {
    if (screen_.liftRow(at))
        finger_->grip = Grip::Row;
    else if (screen_.takePlan(at))
        finger_->grip = Grip::Plan;
    if (finger_->grip != Grip::None)
        return screen_.closeCard();
    std::vector<TapThing> things = screen_.thingsUnder(at);
    if (things.empty())
        return;
    screen_.closeCard();
    const bool isPlace = things.front().kind == TapKind::Place;
    const TapThing& meant = isPlace ? things.front() : things.back();
    if (meant.kind == TapKind::Place || meant.kind == TapKind::Ground)
        return screen_.flyDirect(meant);
    screen_.openCard(std::move(things), at);
}

// Taps

void ScreenHand::tap(Point at) {
    const ScreenAreas& areas = screen_.areas();
    if (const Rect& fields = areas.layout().fields; fields.contains(at)) {
        const auto place = screen_.fieldAt({at.x - fields.x, at.y - fields.y});
        screen_.closeCard();
        if (place && onField)
            onField(*place);
        return;
    }
    if (areas.layout().profile.contains(at))
        return screen_.choosePage(PageId::Profile);
    const Point onPage = areas.onPage(at);
    if (!areas.pageWithAlarms().contains(at) || tapAlarm(onPage))
        return;
    if (!screen_.isBarShown())
        screen_.showBar(true);
    else if (!tapPage(onPage) && screen_.barMayHide())
        screen_.showBar(false);
}

// From here on points count from the page's corner; false says that nothing lies there.

bool ScreenHand::tapAlarm(Point at) {
    const auto alarm = screen_.areas().alarms().alarmAt(at);
    if (alarm)
        screen_.acknowledgeAlarm(*alarm);
    return alarm.has_value();
}

bool ScreenHand::tapPage(Point at) {
    if (tapApproach(at))
        return true;
    if (screen_.page() == PageId::FlightPlan && !screen_.data().plan) {
        run(TouchCommand::Plan);
        return true;
    }
    if (tapNearestButton(at) || tapRow(at) || tapMap(at))
        return true;
    screen_.closeCard();
    return false;
}

bool ScreenHand::tapApproach(Point at) {
    const Rect& page = screen_.areas().page();
    const bool hit = PagePainter::showsApproach(screen_.page(), screen_.data(),
                                                screen_.camera().lookAt().has_value()) &&
                     approachBox(page.width, page.height).contains(at);
    if (hit && onApproach)
        onApproach();
    return hit;
}

/// Of the title of the nearest airports.
bool ScreenHand::tapNearestButton(Point at) {
    if (screen_.page() != PageId::NearestAirport)
        return false;
    const Rect& page = screen_.areas().page();
    const NearestLayout layout = layOutNearest(page.width, page.height, 0, {});
    if (layout.filter.contains(at) && onNearestFilter)
        onNearestFilter();
    else if (layout.emergency.contains(at) && onEmergency)
        onEmergency();
    else
        return false;
    return true;
}

bool ScreenHand::tapRow(Point at) {
    const auto row = screen_.lists().rowAt(screen_.listPage(), at);
    if (row)
        openRow(*row, at, false);
    return row.has_value();
}

/// What is met has its card; beside an open one bare ground is what puts it away.
bool ScreenHand::tapMap(Point at) {
    std::vector<TapThing> things = screen_.thingsUnder(at);
    if (things.empty() || (screen_.card().isOpen() && !isMet(things.front())))
        return false;
    screen_.openCard(std::move(things), at);
    return true;
}

/// Of the list on the page; `at` is where it was tapped or stands.
void ScreenHand::openRow(std::size_t row, Point at, bool byKey) {
    if (screen_.page() == PageId::FlightPlan && onPlanRow)
        onPlanRow(row);
    if (screen_.page() == PageId::NearestAirport)
        screen_.openCard((*screen_.data().shownNearAirports())[row], at, byKey);
}

// The card

void ScreenHand::pressCard(CardPart part) {
    if (!screen_.card().canPress(part, screen_.data()))
        return;
    switch (part) {
        case CardPart::Direct:
            return screen_.flyToCard();
        case CardPart::Insert:
            return screen_.insertCard();
        case CardPart::Next:
            return screen_.stepCard(1);
        case CardPart::Info:
            return openInfo();
    }
}

void ScreenHand::openInfo() {
    const TapThing thing = screen_.card().thing();
    screen_.closeCard();
    if (thing.kind == TapKind::Place && onPlace)
        onPlace(*thing.record);
    if (thing.kind == TapKind::Leg && onPlanRow)
        onPlanRow(thing.row);
    if (thing.kind == TapKind::Traffic && onTraffic)
        onTraffic();
    if (thing.kind == TapKind::Ground && onMark)
        onMark(thing.position);
}

/// While the card is open all keys are its own.
bool ScreenHand::cardKey(ScreenKey key) {
    const std::optional<CardPart> focus = screen_.card().focus();
    switch (key) {
        case ScreenKey::Cancel:
            screen_.closeCard();
            return true;
        case ScreenKey::Open:
            focus ? pressCard(*focus) : screen_.moveCardFocus(1);
            return true;
        case ScreenKey::Next:
        case ScreenKey::Right:
            screen_.moveCardFocus(1);
            return true;
        case ScreenKey::Previous:
        case ScreenKey::Left:
            screen_.moveCardFocus(-1);
            return true;
        case ScreenKey::Down:
            screen_.stepCard(1);
            return true;
        case ScreenKey::Up:
            screen_.stepCard(-1);
            return true;
    }
    return false;
}

/// What stands in the aircraft's place: it, or what the keys have moved there.
bool ScreenHand::openMiddle() {
    const auto projection = screen_.camera().projection();
    if (!projection || screen_.isMeasuring())
        return false;
    screen_.openCard(screen_.thingsUnder(projection->aircraft()), projection->aircraft(), true);
    return true;
}

// Wheel, two fingers, keys

void ScreenHand::wheel(int eighths, Point at) {
    const int steps = wheel_.wheel(eighths);
    if (screen_.camera().hasRange())
        screen_.zoom(steps, screen_.areas().onPage(at));
    else
        screen_.moveMark(-steps);
}

void ScreenHand::pinch(double factor, bool begins, Point at) {
    cancelGrip();
    finger_.reset();  // the first finger began one
    glide_.stop();
    if (begins)
        pinch_.reset();
    screen_.zoom(pinch_.pinch(factor), screen_.areas().onPage(at));
}

/// What a finger has taken of the plan goes back; false when there is nothing.
bool ScreenHand::cancelGrip() {
    const Grip grip = finger_ ? finger_->grip : Grip::None;
    if (grip != Grip::Plan && grip != Grip::Row)
        return false;
    screen_.letPlanGo();
    screen_.letRowGo();
    finger_->grip = Grip::None;
    return true;
}

bool ScreenHand::key(ScreenKey key) {
    if (key == ScreenKey::Cancel && cancelGrip())
        return true;
    if (screen_.card().isOpen())
        return cardKey(key);
    switch (key) {
        case ScreenKey::Cancel:
            if (!screen_.isMeasuring())
                return false;
            screen_.setMeasuring(false);
            return true;
        case ScreenKey::Open:
            return openMarked() || openMiddle();
        case ScreenKey::Up:
            return screen_.moveMark(-1) || panByKey(key);
        case ScreenKey::Down:
            return screen_.moveMark(1) || panByKey(key);
        default:
            return panByKey(key);
    }
}

bool ScreenHand::openMarked() {
    const auto row = screen_.lists().marked(screen_.listPage());
    const Rect& page = screen_.areas().page();
    if (row)
        openRow(*row, {page.width / 2, page.height / 2}, true);
    return row.has_value();
}

/// The map goes the other way than the eye.
bool ScreenHand::panByKey(ScreenKey key) {
    if (!screen_.camera().showsMap())
        return false;
    const Rect& page = screen_.areas().page();
    const double step = std::min(page.width, page.height) * kKeyShare;
    switch (key) {
        case ScreenKey::Left:
            screen_.pan({}, {step, 0});
            return true;
        case ScreenKey::Right:
            screen_.pan({}, {-step, 0});
            return true;
        case ScreenKey::Up:
            screen_.pan({}, {0, step});
            return true;
        case ScreenKey::Down:
            screen_.pan({}, {0, -step});
            return true;
        default:
            return false;
    }
}

}  // namespace korvel
