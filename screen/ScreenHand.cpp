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
    finger_ = Finger{.start = at, .last = at, .button = areas.layout().buttonAt(at)};
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
    finger_->ruler = true;
    screen_.pressRuler(at);
}

void ScreenHand::move(Point at) {
    if (!finger_)
        return;
    const Point start = finger_->start;
    finger_->moving = finger_->moving || std::hypot(at.x - start.x, at.y - start.y) > kTapPixels;
    if (!finger_->moving || finger_->button || !screen_.areas().page().contains(start))
        return;
    if (finger_->ruler)
        return screen_.dragRuler(screen_.areas().onPage(at));
    if (!screen_.camera().showsMap())
        return scroll(at);
    screen_.pan(std::exchange(finger_->last, at), at);
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
    if (finger.ruler)
        return screen_.releaseRuler();
    if (finger.button) {
        // As on every button: a finger that slides off has changed its mind.
        if (screen_.areas().layout().buttonAt(at) == finger.button)
            run(kTouchBar.at(*finger.button));
    } else if (!finger.moving) {
        tap(finger.start);
    }
}

// Taps

void ScreenHand::tap(Point at) {
    const ScreenAreas& areas = screen_.areas();
    if (const Rect& fields = areas.layout().fields; fields.contains(at)) {
        const auto place = screen_.fieldAt({at.x - fields.x, at.y - fields.y});
        if (place && onField)
            onField(*place);
        return;
    }
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
    return tapRow(at) || tapMap(at);
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

bool ScreenHand::tapRow(Point at) {
    const auto row = screen_.lists().rowAt(screen_.listPage(), at);
    if (row)
        openRow(*row);
    return row.has_value();
}

bool ScreenHand::tapMap(Point at) {
    if (screen_.tellThing(at))
        return true;
    const std::vector<MapPlace> found = screen_.placesAt(at);
    if (!found.empty() && onPlaces)
        onPlaces(found);
    return !found.empty();
}

/// Of the list on the page.
void ScreenHand::openRow(std::size_t row) {
    if (screen_.page() == PageId::FlightPlan && onPlanRow)
        onPlanRow(row);
    if (screen_.page() == PageId::NearestAirport && onAirport)
        onAirport((*screen_.data().nearAirports)[row]);
}

// Wheel, two fingers, keys

void ScreenHand::wheel(int eighths) {
    const int steps = wheel_.wheel(eighths);
    if (screen_.camera().showsMap())
        screen_.zoom(steps);
    else
        screen_.moveMark(-steps);
}

void ScreenHand::pinch(double factor, bool begins) {
    finger_.reset();  // the first finger began one
    if (begins)
        pinch_.reset();
    screen_.zoom(pinch_.pinch(factor));
}

bool ScreenHand::key(ScreenKey key) {
    switch (key) {
        case ScreenKey::Cancel:
            if (!screen_.isMeasuring())
                return false;
            screen_.setMeasuring(false);
            return true;
        case ScreenKey::Open:
            return openMarked();
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
    if (row)
        openRow(*row);
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
