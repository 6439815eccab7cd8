#include "window/CKorvelView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QScreen>
#include <QWheelEvent>

#include "cockpit/CKorvelDoc.h"
#include "cockpit/NearAirports.h"
#include "config/ProfileFile.h"
#include "map/MapView.h"
#include "map/PlaceHit.h"
#include "map/layers/MeasureLayer.h"
#include "navdb/records/RecordKey.h"
#include "pages/ApproachBox.h"
#include "paint/TypeSizes.h"
#include "screen/PageCycle.h"
#include "window/QtCanvas.h"

namespace korvel {
namespace {

constexpr std::string_view kPageKey = "Page";
constexpr std::string_view kHintsKey = "HintsShown";
constexpr int kMessageTicks = 5000 / CKorvelView::kTickMs;
constexpr int kAttitudeMs = 50;  // an attitude that lags is of no use
/// A finger that moves less than this has tapped.
constexpr double kTapPixels = 12;
constexpr double kMmPerInch = 25.4;

constexpr std::array kButtons = {TouchCommand::Page,  TouchCommand::DirectTo, TouchCommand::Nearest,
                                 TouchCommand::Plan,  TouchCommand::Aircraft, TouchCommand::ZoomOut,
                                 TouchCommand::ZoomIn};
/// How near to a symbol a tap counts for it.
constexpr double kFingerPixels = 24;
/// A list moves by a row for each of these.
constexpr double kScrollPixels = 40;

/// The identifier as well: a VOR is often called like the airport beside it.
std::string calledWaypoint(const CockpitData& data) {
    const std::string_view ident = identOfKey(data.activeKey);
    if (data.activeName.empty() || ident.empty() || ident == data.activeName)
        return data.activeName.empty() ? std::string(ident) : data.activeName;
    return std::string(ident) + ' ' + data.activeName;
}

/// The altitude that is wanted there; the one to be at next may belong to a later waypoint.
std::optional<std::int32_t> altitudeAtWaypoint(const CockpitData& data) {
    if (data.directLeg)
        return data.targetAltitudeFt;
    const auto row = flownRow(data);
    return row ? data.plan->rows[*row].altitudeFt : std::nullopt;
}

/// A point of the window as the page counts it.
Point onPage(Point at, const ScreenLayout& layout) {
    return {at.x - layout.page.x, at.y - layout.page.y};
}

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
      pagePainter_(colors_),
      feeds_(document.flight().database()) {
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
    if (event->timerId() == attitudeTimer_.timerId())
        return update();
    if (event->timerId() != timer_.timerId())
        return QWidget::timerEvent(event);
    timer_.stop();
    tick();
    timer_.start(kTickMs, this);
}

void CKorvelView::tick() {
    if (page_ == PageId::Satellite)
        document_.wantSatellites();
    if (page_ == PageId::NearestAirport ||
        std::ranges::find(fields_, NavFieldId::NearestAirport) != fields_.end())
        document_.flight().wantNearAirports();
    document_.tick();
    if (messageTicks_ > 0 && --messageTicks_ == 0) {
        message_.clear();
        update();
    }
    if (const std::string message = viewport_.tick(); !message.empty() && !panned_)
        say(message);
    takeNews();
    followAttitude();
    actByItself();
    if (onLive)
        onLive(data_.position && !data_.simulated);
    announceWaypoint();
    announceApproach();
}

void CKorvelView::followAttitude() {
    AttitudeModule& module = document_.attitudeModule();
    const bool follow =
        page_ == PageId::Attitude && module.isLoaded() && document_.settings().gyroConnected != 0;
    module.setListening(follow);
    if (!follow)
        attitudeTimer_.stop();
    else if (!attitudeTimer_.isActive())
        attitudeTimer_.start(kAttitudeMs, this);
}

/// Automatic view and zoom, which leave what the pilot looks at alone.
void CKorvelView::actByItself() {
    if (held_ || panned_ || ruler_.isOn() || viewport_.autoZoomPaused())
        return;
    const Settings& settings = document_.settings();
    if (settings.autoview)
        if (const auto page = autoView_.tick(page_, data_))
            showPage(*page);
    if (!settings.autozoom || !isMapPage())
        return;
    std::optional<Point> waypoint;
    if (const auto target = data_.flownTo(); target && data_.position)
        waypoint = viewport_.projection(*data_.position, upDeg()).project(*target);
    if (const auto rangeNm = autoZoom_.tick(waypoint, viewport_, data_.approach.has_value());
        rangeNm && viewport_.setRange(*rangeNm))
        update();
}

/// The pilot looks elsewhere or chooses a page.
void CKorvelView::pauseAutomatic() {
    held_ = false;
    const Settings& settings = document_.settings();
    if (!settings.autozoom && !settings.autoview)
        return;
    const bool alreadyTold = viewport_.autoZoomPaused();
    const std::string message = viewport_.pauseAutomatic();
    if (!alreadyTold)
        say(message);
}

/// Once for each: while it descends towards one, the altitude there changes all the time.
void CKorvelView::announceWaypoint() {
    std::string waypoint = calledWaypoint(data_);
    if (waypoint == announced_)
        return;
    announced_ = std::move(waypoint);
    if (announced_.empty())
        return;
    const std::string_view name = announced_;
    const auto altitudeFt = altitudeAtWaypoint(data_);
    say(altitudeFt ? formatText(kMessageTexts.nextWaypointAt, {name, *altitudeFt})
                   : formatText(kMessageTexts.nextWaypoint, {name}));
}

void CKorvelView::announceApproach() {
    const auto runway =
        data_.approach ? std::optional(data_.approach->runway) : std::optional<LandingRunway>();
    // Without a position there are no figures, but the approach goes on.
    if (!data_.position || runway == announcedRunway_)
        return;
    announcedRunway_ = runway;
    say(runway ? formatText(kMessageTexts.approachBegun,
                            {std::string_view(runway->id), std::string_view(runway->airport)})
               : std::string(text(kMessageTexts.approachEnded)));
}

void CKorvelView::refresh() {
    document_.refresh();
    takeNews();
    update();
}

void CKorvelView::takeNews() {
    if (document_.revision() == shownRevision_)
        return;
    shownRevision_ = document_.revision();
    const CockpitData before = std::exchange(data_, document_.cockpitData());
    if (nearestView_.selected && before.nearAirports && data_.nearAirports)
        nearestView_.selected =
            rowOfSame(*before.nearAirports, *nearestView_.selected, *data_.nearAirports);
    // Whoever starts the simulator wants to see it.
    if (data_.simulated && !before.simulated)
        panned_.reset();
    angle_.update(data_);
    if (data_.alarms != laidOutAlarms_)
        layOut();
    update();
}

/// Brings what is around the view up to date for the painting that has begun.
void CKorvelView::updateFeeds() {
    const auto center = mapCenter();
    if (!isMapPage() || !center)
        return;
    const MapView view(viewport_, *center, upDeg(),
                       {0, 0, layout_.page.width, layout_.page.height});
    // This painting shows what there is; the next one what is still to be read.
    if (feeds_.update({view, data_, document_.settings()}) && !feeds_.isComplete())
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
    buttons.reserve(kButtons.size());
    for (const TouchCommand command : kButtons)
        buttons.push_back({command, canRun(command), drag_ && drag_->button == buttons.size()});
    return buttons;
}

AttitudeView CKorvelView::attitudeView() {
    if (page_ != PageId::Attitude)
        return {};
    return attitude_.draw(document_.attitudeModule(), static_cast<int>(layout_.page.width),
                          static_cast<int>(layout_.page.height), colors_);
}

void CKorvelView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const CockpitData shown = dataToShow();
    {
        updateFeeds();
        QtCanvas canvas(painter, labels_, layout_.page);
        pagePainter_.paint(canvas, page_,
                           {.data = shown,
                            .viewport = viewport_,
                            .upTrueDeg = upDeg(),
                            .lookAt = panned_,
                            .feeds = &feeds_,
                            .measure = &ruler_,
                            .nearest = nearestView_,
                            .plan = planView_,
                            .attitude = attitudeView(),
                            .alarms = alarms_.areas});
    }
    {
        QtCanvas canvas(painter, labels_, pageWithAlarms());
        paintAlarms(canvas, alarms_, colors_);
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
    layOutAlarms();
    viewport_.layout(page_, static_cast<int>(layout_.page.width),
                     static_cast<int>(layout_.page.height));
    update();
}

void CKorvelView::layOutAlarms() {
    laidOutAlarms_ = data_.alarms;
    alarms_ = {QtTextMeasure(labels_.fonts()), layout_.page, data_.alarms,
               mapTextPx(layout_.page.width, layout_.page.height), PagePainter::alarmPlace(page_)};
    layout_.page.height -= alarms_.stripHeight;
}

Rect CKorvelView::pageWithAlarms() const {
    Rect whole = layout_.page;
    whole.height += alarms_.stripHeight;
    return whole;
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

void CKorvelView::hint(Text hint) {
    constexpr std::array kHints = {kMessageTexts.hintFields, kMessageTexts.hintFullScreen,
                                   kMessageTexts.measureHint};
    const auto number = std::ranges::find(kHints, hint) - kHints.begin();
    const int shown = profile_.getInt(kOptionsSection, kHintsKey, 0);
    const int own = 1 << number;
    if (!document_.settings().showHints || (shown & own) != 0)
        return;
    profile_.setInt(kOptionsSection, kHintsKey, shown | own, true);
    say(std::string(text(hint)));
}

void CKorvelView::zoom(int steps) {
    if (!isMapPage())
        return;
    held_ = false;
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
    if (!isMapPage())
        ruler_.setOn(false);
    panned_.reset();
    planView_ = {};
    nearestView_ = {};
    layOut();
    followAttitude();
    refresh();
}

void CKorvelView::choosePage(PageId page) {
    autoView_.leaveAlone();
    held_ = false;
    showPage(page);
    if (isMapPage())
        hint(kMessageTexts.hintFields);
}

void CKorvelView::goToNextPage() { choosePage(nextPage(page_, document_.settings().displayPages)); }

bool CKorvelView::setRange(int rangeNm) {
    if (std::ranges::find(kRangeStepsNm, rangeNm) == kRangeStepsNm.end())
        return false;
    viewport_.setRange(rangeNm);
    update();
    return true;
}

void CKorvelView::backToAircraft() {
    if (!isMapPage())
        choosePage(PageId::Map);
    panned_.reset();
    held_ = false;
    viewport_.returnToConfigured();
    update();
}

void CKorvelView::lookAt(GeoPoint place) {
    if (!isMapPage())
        showPage(PageId::Map);
    panned_ = place;
    update();
}

void CKorvelView::databasesChanged() {
    feeds_.forget();
    update();
}

void CKorvelView::setMeasuring(bool on) {
    if (on && !isMapPage())
        showPage(PageId::Map);
    if (on)
        hint(kMessageTexts.measureHint);
    else if (ruler_.isOn())
        say(std::string(text(kMessageTexts.measureEnded)));
    ruler_.setOn(on);
    update();
}

void CKorvelView::setBarMayHide(bool mayHide) {
    barMayHide_ = mayHide;
    if (mayHide)
        hint(kMessageTexts.hintFullScreen);
    barHidden_ = false;
    layOut();
}

bool CKorvelView::canRun(TouchCommand command) const {
    switch (command) {
        case TouchCommand::Aircraft:
            return !isMapPage() || panned_ ||
                   viewport_.currentRangeNm() != viewport_.configuredRangeNm();
        case TouchCommand::ZoomIn:
            return isMapPage() && viewport_.currentRangeNm() > kRangeStepsNm.front();
        case TouchCommand::ZoomOut:
            return isMapPage() && viewport_.currentRangeNm() < kRangeStepsNm.back();
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
            if (onTouch)
                onTouch(command);
    }
}

// Hands

bool CKorvelView::isMapPage() const { return PagePainter::isMap(page_); }

std::optional<GeoPoint> CKorvelView::mapCenter() const { return korvel::mapCenter(data_, panned_); }

void CKorvelView::pan(Point from, Point to) {
    const auto center = mapCenter();
    if (!isMapPage() || !center)
        return;
    pauseAutomatic();
    const MapProjection projection = viewport_.projection(*center, upDeg());
    const Point aircraft = projection.aircraft();
    panned_ = projection.unproject({aircraft.x - (to.x - from.x), aircraft.y - (to.y - from.y)});
    update();
}

void CKorvelView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const Point at = toPoint(event->position());
    drag_ = Drag{.start = at, .last = at, .button = layout_.buttonAt(at)};
    if (ruler_.isOn() && isOnMap(at))
        holdRuler(at);
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
    if (drag_->ruler) {
        ruler_.drag(onPage(at, layout_), [this](Point finger) { return measureEndAt(finger); });
        return update();
    }
    if (!isMapPage())
        return scroll(drag_->last, at);
    pan(drag_->last, at);
    drag_->last = at;
}

FlightPlanRows CKorvelView::planRows() const {
    return {layout_.page.width, layout_.page.height, data_.plan ? data_.plan->rows.size() : 0};
}

/// Moves a list by whole rows, as the finger goes.
void CKorvelView::scroll(Point from, Point to) {
    const auto rowsMoved = static_cast<int>((from.y - to.y) / kScrollPixels);
    if (rowsMoved == 0)
        return;
    drag_->last = to;
    const auto moved = [rowsMoved](std::size_t first, std::size_t last) {
        const auto row = static_cast<std::ptrdiff_t>(first) + rowsMoved;
        return static_cast<std::size_t>(
            std::clamp<std::ptrdiff_t>(row, 0, static_cast<std::ptrdiff_t>(last)));
    };
    if (page_ == PageId::FlightPlan) {
        const FlightPlanRows rows = planRows();
        planView_.firstRow = moved(firstShownRow(data_, planView_, rows), rows.lastFirst());
    } else if (page_ == PageId::NearestAirport && data_.nearAirports) {
        nearestView_.first = moved(nearestView_.first, data_.nearAirports->size());
    }
    update();
}

void CKorvelView::hideBar(bool hide) {
    barHidden_ = hide;
    layOut();
    if (onBarShown)
        onBarShown(!hide);
}

void CKorvelView::tap(Point at) {
    if (layout_.fields.contains(at))
        return tapFields({at.x - layout_.fields.x, at.y - layout_.fields.y});
    if (!pageWithAlarms().contains(at) || tapAlarm(onPage(at, layout_)))
        return;
    if (barHidden_)
        hideBar(false);
    else if (!tapPage(onPage(at, layout_)) && barMayHide_)
        hideBar(true);
}

/// `at` counts from the strip's corner.
void CKorvelView::tapFields(Point at) {
    const auto place = FieldStrip::fieldAt(QtTextMeasure(labels_.fonts()), layout_.fields,
                                           layout_.arrangement, shownFields(), at);
    if (place && onField)
        onField(*place);
}

void CKorvelView::setField(std::size_t place, NavFieldId field) {
    if (const auto other = std::ranges::find(fields_, field); other != fields_.end())
        *other = fields_.at(place);
    fields_.at(place) = field;
    storeState();
    layOut();
}

bool CKorvelView::acknowledgeAlarm(std::size_t place) {
    const bool done = document_.flight().alarms().acknowledge(place);
    if (done)
        refresh();
    return done;
}

/// `at` counts from the page's corner.
bool CKorvelView::tapAlarm(Point at) {
    const auto alarm = alarms_.alarmAt(at);
    if (alarm)
        acknowledgeAlarm(*alarm);
    return alarm.has_value();
}

/// `at` counts from the page's corner.
bool CKorvelView::tapApproach(Point at) {
    const bool hit = PagePainter::showsApproach(page_, data_, panned_.has_value()) &&
                     approachBox(layout_.page.width, layout_.page.height).contains(at);
    if (hit && onApproach)
        onApproach();
    return hit;
}

/// False when nothing lies there. `at` counts from the page's corner.
bool CKorvelView::tapPage(Point at) {
    if (tapApproach(at))
        return true;
    if (page_ == PageId::FlightPlan && !data_.plan) {
        run(TouchCommand::Plan);
        return true;
    }
    if (page_ == PageId::FlightPlan) {
        const FlightPlanRows rows = planRows();
        const auto row = rows.rowAt(at, firstShownRow(data_, planView_, rows));
        if (row && onPlanRow)
            onPlanRow(*row);
        return row.has_value();
    }
    if (page_ == PageId::NearestAirport && data_.nearAirports) {
        const auto row = layOutNearestPage(layout_.page.width, layout_.page.height,
                                           data_.nearAirports->size(), nearestView_)
                             .rowAt(at);
        if (row && onAirport)
            onAirport((*data_.nearAirports)[*row]);
        return row.has_value();
    }
    return tapMap(at);
}

bool CKorvelView::isOnMap(Point at) const {
    return isMapPage() && mapCenter() && layout_.page.contains(at);
}

/// A finger on the map while it measures; `at` counts from the window's corner.
void CKorvelView::holdRuler(Point at) {
    const Point finger = onPage(at, layout_);
    const double textPx = mapTextPx(layout_.page.width, layout_.page.height);
    if (measureCloseBox(layout_.page.width, textPx).contains(finger)) {
        drag_.reset();
        return setMeasuring(false);
    }
    drag_->ruler = true;
    ruler_.press(finger, viewport_.projection(*mapCenter(), upDeg()), data_,
                 [this](Point snapped) { return measureEndAt(snapped); });
}

/// `at` counts from the page's corner.
MeasureEnd CKorvelView::measureEndAt(Point at) {
    const MapProjection projection = viewport_.projection(*mapCenter(), upDeg());
    MeasureEnd end{.position = projection.unproject(at)};
    const auto found =
        placesAt(feeds_.places(), projection, viewport_.currentRangeNm(), at, kFingerPixels);
    if (!found.empty()) {
        end.position = found.front()->place.position;
        end.name = found.front()->place.ident.view();
    } else if (data_.position) {
        const Point aircraft = projection.project(*data_.position);
        end.aircraft = std::hypot(aircraft.x - at.x, aircraft.y - at.y) <= kFingerPixels;
    }
    if (end.aircraft) {
        end.position = *data_.position;
        end.variationDeg = data_.variationDeg;
        return end;
    }
    const double variation = document_.flight().database().variationNear(end.position);
    if (variation != kNoAngle)
        end.variationDeg = variation;
    return end;
}

bool CKorvelView::tapMap(Point at) {
    const auto center = mapCenter();
    if (!isMapPage() || !center)
        return false;
    std::vector<MapPlace> found;
    for (const MapPlace* place : placesAt(feeds_.places(), viewport_.projection(*center, upDeg()),
                                          viewport_.currentRangeNm(), at, kFingerPixels))
        found.push_back(*place);
    if (!found.empty() && onPlaces)
        onPlaces(found);
    return !found.empty();
}

void CKorvelView::mouseReleaseEvent(QMouseEvent* event) {
    if (!drag_ || event->button() != Qt::LeftButton)
        return;
    const Drag drag = *drag_;
    drag_.reset();
    update();
    if (drag.ruler)
        return ruler_.release();
    const auto button = layout_.buttonAt(toPoint(event->position()));
    if (drag.button) {
        // As on every button: a finger that slides off has changed its mind.
        if (button == drag.button)
            run(kButtons.at(*button));
    } else if (!drag.moving) {
        tap(drag.start);
    }
}

void CKorvelView::wheelEvent(QWheelEvent* event) {
    const int steps = wheel_.wheel(event->angleDelta().y());
    if (isMapPage())
        zoom(steps);
    else
        moveSelection(-steps);
    event->accept();
}

/// Moves the mark in the list that the page shows; false when it shows none.
bool CKorvelView::moveSelection(int rows) {
    const auto moved = [rows](std::optional<std::size_t> row, std::size_t start,
                              std::size_t count) {
        const auto to =
            row ? static_cast<std::ptrdiff_t>(*row) + rows : static_cast<std::ptrdiff_t>(start);
        return static_cast<std::size_t>(
            std::clamp<std::ptrdiff_t>(to, 0, static_cast<std::ptrdiff_t>(count) - 1));
    };
    if (page_ == PageId::FlightPlan && data_.plan && !data_.plan->rows.empty()) {
        planView_.selectedRow =
            moved(planView_.selectedRow, data_.plan->active.value_or(0), data_.plan->rows.size());
        planView_.firstRow = planRows().firstFor(*planView_.selectedRow);
    } else if (page_ == PageId::NearestAirport && data_.nearAirports &&
               !data_.nearAirports->empty()) {
        const std::size_t row = moved(nearestView_.selected, 0, data_.nearAirports->size());
        nearestView_.selected = row;
        const std::size_t perPage = layOutNearestPage(layout_.page.width, layout_.page.height,
                                                      data_.nearAirports->size(), nearestView_)
                                        .perPage;
        nearestView_.first = row - row % perPage;
    } else {
        return false;
    }
    update();
    return true;
}

bool CKorvelView::openSelection() {
    if (page_ == PageId::FlightPlan && planView_.selectedRow && onPlanRow) {
        onPlanRow(*planView_.selectedRow);
        return true;
    }
    if (page_ == PageId::NearestAirport && nearestView_.selected && data_.nearAirports &&
        *nearestView_.selected < data_.nearAirports->size() && onAirport) {
        onAirport((*data_.nearAirports)[*nearestView_.selected]);
        return true;
    }
    return false;
}

bool CKorvelView::panByKey(int key) {
    const double step = std::min(layout_.page.width, layout_.page.height) / 8;
    const std::array<std::pair<int, Point>, 4> steps{{{Qt::Key_Left, {step, 0}},
                                                      {Qt::Key_Right, {-step, 0}},
                                                      {Qt::Key_Up, {0, step}},
                                                      {Qt::Key_Down, {0, -step}}}};
    const auto* found = std::ranges::find(steps, key, &std::pair<int, Point>::first);
    if (!isMapPage() || found == steps.end())
        return false;
    pan({}, found->second);
    return true;
}

void CKorvelView::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Escape && ruler_.isOn()) {
        setMeasuring(false);
        return event->accept();
    }
    const bool opens = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool moves = key == Qt::Key_Up || key == Qt::Key_Down;
    if ((moves && moveSelection(key == Qt::Key_Down ? 1 : -1)) || (opens && openSelection()) ||
        panByKey(key))
        return event->accept();
    QWidget::keyPressEvent(event);
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
