#include "window/CKorvelView.h"

#include <utility>

#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPinchGesture>
#include <QScreen>
#include <QWheelEvent>

#include "cockpit/CKorvelDoc.h"
#include "cockpit/Modes.h"
#include "pages/StatusLine.h"
#include "qtpaint/QtCanvas.h"

namespace korvel {
namespace {

constexpr int kFrameMs = 15;
constexpr int kAttitudeMs = 50;  // an attitude that lags is of no use
constexpr double kMmPerInch = 25.4;

Point toPoint(const QPointF& position) { return {position.x(), position.y()}; }

/// 0 when the glass's own word cannot be true.
double pixelsPerMm(const QScreen* glass) {
    const double dotsPerInch = glass == nullptr ? 0 : glass->physicalDotsPerInchX();
    return dotsPerInch >= 50 && dotsPerInch <= 600 ? dotsPerInch / kMmPerInch : 0;
}

std::optional<ScreenKey> screenKey(int key) {
    switch (key) {
        case Qt::Key_Left:
            return ScreenKey::Left;
        case Qt::Key_Right:
            return ScreenKey::Right;
        case Qt::Key_Up:
            return ScreenKey::Up;
        case Qt::Key_Down:
            return ScreenKey::Down;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return ScreenKey::Open;
        case Qt::Key_Escape:
            return ScreenKey::Cancel;
        default:
            return std::nullopt;
    }
}

}  // namespace

CKorvelView::CKorvelView(CKorvelDoc& document, ProfileFile& profile, const ColorScheme& scheme,
                         LabelCache& labels)
    : document_(document),
      scheme_(scheme),
      labels_(labels),
      colors_(scheme),
      letters_(labels.fonts()),
      screen_(document, profile, letters_) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(320, 240);
    grabGesture(Qt::PinchGesture);
    attitudeClock_.start();
    screen_.onChanged = [this] { paintSoon(); };
    fitScreen();
    screen_.tick();
    timer_.start(Screen::kTickMs, this);
}

// Time and room

void CKorvelView::timerEvent(QTimerEvent* event) {
    if (event->timerId() == attitudeTimer_.timerId())
        return update();
    if (event->timerId() == handTimer_.timerId()) {
        hand_.frame();
        return followHand();
    }
    if (event->timerId() != timer_.timerId())
        return QWidget::timerEvent(event);
    timer_.stop();
    screen_.tick();
    timer_.start(Screen::kTickMs, this);
}

void CKorvelView::paintSoon() {
    update();
    if (!screen_.followsAttitude())
        attitudeTimer_.stop();
    else if (!attitudeTimer_.isActive())
        attitudeTimer_.start(kAttitudeMs, this);
}

/// The window may have moved to another glass, too.
void CKorvelView::fitScreen() { screen_.resize(width(), height(), pixelsPerMm(QWidget::screen())); }

void CKorvelView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitScreen();
}

// Painting

void CKorvelView::schemeChanged() {
    colors_.refresh(scheme_);
    update();
}

void CKorvelView::paintEvent(QPaintEvent* /*event*/) {
    fitScreen();
    QPainter painter(this);
    const CockpitData shown = screen_.dataToShow();
    const ScreenAreas& areas = screen_.areas();
    paintPage(painter, shown);
    {
        QtCanvas canvas(painter, labels_, areas.pageWithAlarms());
        paintAlarms(canvas, areas.alarms(), colors_);
    }
    {
        QtCanvas canvas(painter, labels_, areas.layout().status);
        paintStatusLine(canvas, modesOf(shown), colors_);
    }
    {
        QtCanvas canvas(painter, labels_, areas.layout().fields);
        fieldStrip_.paint(canvas, areas.layout().arrangement, screen_.shownFields(), shown);
    }
    if (!areas.layout().buttons.empty()) {
        QtCanvas canvas(painter, labels_, areas.layout().touchBar);
        touchBar_.paint(canvas, hand_.buttons());
    }
    if (!std::exchange(painted_, true) && onFirstPaint)
        onFirstPaint();
}

void CKorvelView::paintPage(QPainter& painter, const CockpitData& shown) {
    screen_.updateFeeds();
    const PageScene scene = screen_.scene(shown, attitudeView());
    {
        QtCanvas canvas(painter, labels_, screen_.areas().page());
        pagePainter_.paint(canvas, screen_.page(), scene);
    }
    if (const Rect& strip = screen_.areas().layout().profile; strip.height > 0) {
        QtCanvas canvas(painter, labels_, strip);
        pagePainter_.paintStrip(canvas, scene);
    }
}

AttitudeView CKorvelView::attitudeView() {
    if (screen_.page() != PageId::Attitude)
        return {};
    const Rect& page = screen_.areas().page();
    return attitude_.draw(document_.attitudeModule(), static_cast<int>(page.width),
                          static_cast<int>(page.height), colors_, attitudeClock_.elapsed());
}

// Hands

void CKorvelView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        hand_.press(toPoint(event->position()));
    followHand();
}

void CKorvelView::mouseMoveEvent(QMouseEvent* event) { hand_.move(toPoint(event->position())); }

void CKorvelView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        hand_.release(toPoint(event->position()));
    followHand();
}

/// A finger that rests and a map that glides on make no events.
void CKorvelView::followHand() {
    if (!hand_.wantsFrames())
        handTimer_.stop();
    else if (!handTimer_.isActive())
        handTimer_.start(kFrameMs, Qt::PreciseTimer, this);
}

void CKorvelView::wheelEvent(QWheelEvent* event) {
    hand_.wheel(event->angleDelta().y(), toPoint(event->position()));
    event->accept();
}

void CKorvelView::keyPressEvent(QKeyEvent* event) {
    const auto key = screenKey(event->key());
    if (key && hand_.key(*key))
        return event->accept();
    QWidget::keyPressEvent(event);
}

/// Tab comes here first, and is the card's while one is open.
bool CKorvelView::focusNextPrevChild(bool next) {
    return hand_.key(next ? ScreenKey::Next : ScreenKey::Previous) ||
           QWidget::focusNextPrevChild(next);
}

bool CKorvelView::event(QEvent* event) {
    if (event->type() != QEvent::Gesture)
        return QWidget::event(event);
    auto* gestures = static_cast<QGestureEvent*>(event);
    auto* pinch = static_cast<QPinchGesture*>(gestures->gesture(Qt::PinchGesture));
    if (pinch == nullptr)
        return QWidget::event(event);
    hand_.pinch(pinch->scaleFactor(), pinch->state() == Qt::GestureStarted,
                toPoint(mapFromGlobal(pinch->centerPoint())));
    return true;
}

}  // namespace korvel
