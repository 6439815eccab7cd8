#include "app/CKorvelView.h"

#include <algorithm>
#include <cmath>

#include <QGestureEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QScreen>
#include <QWheelEvent>

#include "app/CKorvelDoc.h"
#include "app/PageCycle.h"
#include "app/QtCanvas.h"
#include "config/ProfileFile.h"

namespace korvel {
namespace {

constexpr std::string_view kPageKey = "Page";
constexpr int kMessageTicks = 5000 / CKorvelView::kTickMs;
/// A finger that moves less than this has tapped.
constexpr double kTapPixels = 12;
constexpr double kMmPerInch = 25.4;

constexpr std::array kButtons = {TouchCommand::Page, TouchCommand::Aircraft, TouchCommand::ZoomOut,
                                 TouchCommand::ZoomIn};

Point toPoint(const QPointF& position) { return {position.x(), position.y()}; }

/// 0 when the screen's own word cannot be true.
double pixelsPerMm(const QScreen* screen) {
    const double dotsPerInch = screen == nullptr ? 0 : screen->physicalDotsPerInchX();
    return dotsPerInch >= 50 && dotsPerInch <= 600 ? dotsPerInch / kMmPerInch : 0;
}

}  // namespace

CKorvelView::CKorvelView(CKorvelDoc& document, ProfileFile& profile, const ColorScheme& scheme,
                         LabelCache& labels)
    : document_(document),
      profile_(profile),
      scheme_(scheme),
      labels_(labels),
      colors_(scheme),
      pagePainter_(colors_) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(320, 240);
    grabGesture(Qt::PinchGesture);
    viewport_.loadRange(profile_);
    fields_ = navFieldsFromText(
        profile_.getString(kOptionsSection, kNavFieldsKey, navFieldsToText(defaultNavFields())));
    page_ = pageOfNumber(profile_.getInt(kOptionsSection, kPageKey, static_cast<int>(PageId::Map)));
    tick();
    timer_.start(kTickMs, this);
}

void CKorvelView::storeState() {
    profile_.setInt(kOptionsSection, kPageKey, static_cast<int>(page_), true);
    viewport_.saveRange(profile_);
    profile_.setString(kOptionsSection, kNavFieldsKey, navFieldsToText(fields_), true);
}

void CKorvelView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != timer_.timerId())
        return QWidget::timerEvent(event);
    timer_.stop();
    tick();
    timer_.start(kTickMs, this);
}

void CKorvelView::tick() {
    if (page_ == PageId::Satellite)
        document_.wantSatellites();
    document_.tick();
    if (messageTicks_ > 0 && --messageTicks_ == 0) {
        message_.clear();
        update();
    }
    if (const std::string message = viewport_.tick(); !message.empty())
        say(message);
    if (document_.revision() == shownRevision_)
        return;
    shownRevision_ = document_.revision();
    data_ = document_.cockpitData();
    angle_.update(data_);
    update();
}

// Painting

CockpitData CKorvelView::dataToShow() const {
    CockpitData shown = data_;
    if (!message_.empty())
        shown.message = message_;
    return shown;
}

int CKorvelView::upDeg() const { return PagePainter::turns(page_) ? angle_.degrees() : 0; }

std::span<const NavFieldId> CKorvelView::shownFields() const {
    return FieldStrip::fitting(fields_, layout_.arrangement, layout_.fields.width,
                               layout_.fields.height);
}

std::vector<TouchButton> CKorvelView::touchButtons() const {
    std::vector<TouchButton> buttons;
    for (const TouchCommand command : kButtons)
        buttons.push_back({command, canRun(command), drag_ && drag_->button == buttons.size()});
    return buttons;
}

void CKorvelView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const CockpitData shown = dataToShow();
    {
        QtCanvas canvas(painter, labels_, layout_.page);
        pagePainter_.paint(
            canvas, page_,
            {.data = shown, .viewport = viewport_, .upTrueDeg = upDeg(), .lookAt = panned_});
    }
    {
        QtCanvas canvas(painter, labels_, layout_.fields);
        fieldStrip_.paint(canvas, layout_.arrangement, shownFields(), shown);
    }
    if (!layout_.buttons.empty()) {
        QtCanvas canvas(painter, labels_, layout_.touchBar);
        touchBar_.paint(canvas, touchButtons());
    }
    if (!painted_ && onFirstPaint)
        onFirstPaint();
    painted_ = true;
}

void CKorvelView::layOut() {
    layout_ = layOutScreen({.width = static_cast<double>(width()),
                            .height = static_cast<double>(height()),
                            .pxPerMm = pixelsPerMm(screen()),
                            .fieldCount = fields_.size(),
                            .buttonCount = barHidden_ ? 0 : kButtons.size()});
    viewport_.layout(page_, static_cast<int>(layout_.page.width),
                     static_cast<int>(layout_.page.height));
    update();
}

void CKorvelView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOut();
}

void CKorvelView::schemeChanged() {
    colors_.refresh(scheme_);
    update();
}

// Commands

void CKorvelView::say(const std::string& message) {
    message_ = message;
    messageTicks_ = kMessageTicks;
    update();
}

void CKorvelView::zoom(int steps) {
    const bool autoZoom = document_.settings().autozoom;
    for (int step = 0; step < std::abs(steps); ++step) {
        const std::string message =
            steps > 0 ? viewport_.zoomIn(autoZoom) : viewport_.zoomOut(autoZoom);
        if (!message.empty())
            say(message);
    }
    update();
}

void CKorvelView::zoomIn() { zoom(1); }

void CKorvelView::zoomOut() { zoom(-1); }

void CKorvelView::showPage(PageId page) {
    page_ = page;
    panned_.reset();
    layOut();
}

void CKorvelView::goToNextPage() { showPage(nextPage(page_, document_.settings().displayPages)); }

bool CKorvelView::setRange(int rangeNm) {
    if (std::ranges::find(kRangeStepsNm, rangeNm) == kRangeStepsNm.end())
        return false;
    viewport_.setRange(rangeNm);
    update();
    return true;
}

void CKorvelView::backToAircraft() {
    panned_.reset();
    viewport_.returnToConfigured();
    update();
}

void CKorvelView::setBarMayHide(bool mayHide) {
    barMayHide_ = mayHide;
    barHidden_ = false;
    layOut();
}

bool CKorvelView::canRun(TouchCommand command) const {
    switch (command) {
        case TouchCommand::Aircraft:
            return panned_ || viewport_.currentRangeNm() != viewport_.configuredRangeNm();
        case TouchCommand::ZoomIn:
            return viewport_.currentRangeNm() > kRangeStepsNm.front();
        case TouchCommand::ZoomOut:
            return viewport_.currentRangeNm() < kRangeStepsNm.back();
        default:
            return true;
    }
}

void CKorvelView::run(TouchCommand command) {
    switch (command) {
        case TouchCommand::Page:
            return goToNextPage();
        case TouchCommand::Aircraft:
            return backToAircraft();
        case TouchCommand::ZoomIn:
            return zoomIn();
        case TouchCommand::ZoomOut:
            return zoomOut();
        default:
            return;
    }
}

// Hands

bool CKorvelView::isMapPage() const { return page_ == PageId::Map || page_ == PageId::NorthUp; }

std::optional<GeoPoint> CKorvelView::mapCenter() const {
    if (panned_)
        return panned_;
    return data_.position ? data_.position : data_.lastPosition;
}

void CKorvelView::pan(Point from, Point to) {
    const auto center = mapCenter();
    if (!isMapPage() || !center)
        return;
    const MapProjection projection = viewport_.projection(*center, upDeg());
    const Point aircraft = projection.aircraft();
    panned_ = projection.unproject({aircraft.x - (to.x - from.x), aircraft.y - (to.y - from.y)});
    update();
}

void CKorvelView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const Point at = toPoint(event->position());
    drag_ = Drag{at, at, false, layout_.buttonAt(at)};
    update();
}

void CKorvelView::mouseMoveEvent(QMouseEvent* event) {
    if (!drag_)
        return;
    const Point at = toPoint(event->position());
    drag_->moving =
        drag_->moving || std::hypot(at.x - drag_->start.x, at.y - drag_->start.y) > kTapPixels;
    if (!drag_->moving || drag_->button || !layout_.page.contains(drag_->start))
        return;
    pan(drag_->last, at);
    drag_->last = at;
}

void CKorvelView::mouseReleaseEvent(QMouseEvent* event) {
    if (!drag_ || event->button() != Qt::LeftButton)
        return;
    const Drag drag = *drag_;
    drag_.reset();
    update();
    const auto button = layout_.buttonAt(toPoint(event->position()));
    if (drag.button) {
        // As on every button: a finger that slides off has changed its mind.
        if (button == drag.button)
            run(kButtons.at(*button));
    } else if (!drag.moving && barMayHide_ && layout_.page.contains(drag.start)) {
        barHidden_ = !barHidden_;
        layOut();
        if (onBarShown)
            onBarShown(!barHidden_);
    }
}

void CKorvelView::wheelEvent(QWheelEvent* event) {
    zoom(wheel_.wheel(event->angleDelta().y()));
    event->accept();
}

bool CKorvelView::event(QEvent* event) {
    if (event->type() != QEvent::Gesture)
        return QWidget::event(event);
    auto* gestures = static_cast<QGestureEvent*>(event);
    auto* pinch = static_cast<QPinchGesture*>(gestures->gesture(Qt::PinchGesture));
    if (pinch == nullptr)
        return QWidget::event(event);
    drag_.reset();  // the first finger began one
    if (pinch->state() == Qt::GestureStarted)
        pinch_.reset();
    zoom(pinch_.pinch(pinch->scaleFactor()));
    return true;
}

}  // namespace korvel
