#include "screen/Screen.h"

#include <utility>

#include "cockpit/CKorvelDoc.h"
#include "cockpit/PlaceClass.h"
#include "cockpit/PrefsTable.h"
#include "config/ProfileFile.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/MessageTexts.h"
#include "config/texts/TouchTexts.h"
#include "map/layers/AircraftLayer.h"
#include "nav/plan/PlanEdit.h"
#include "pages/ApproachBox.h"
#include "pages/EfisPage.h"
#include "pages/FieldStrip.h"
#include "paint/LabelSpace.h"
#include "paint/TypeSizes.h"
#include "screen/PageCycle.h"
#include "screen/RulerEnd.h"
#include "screen/TapActions.h"

namespace korvel {
namespace {

constexpr std::string_view kPageKey = "Page";
constexpr std::string_view kDeclutterKey = "Declutter";

}  // namespace

Screen::Screen(CKorvelDoc& document, ProfileFile& profile, const TextMeasure& letters)
    : document_(document),
      profile_(profile),
      letters_(letters),
      page_(pageOfNumber(profile.getInt(kOptionsSection, kPageKey, static_cast<int>(PageId::Map)))),
      feeds_(document.charts().database(), document.ground().sources()),
      profileFeed_(document.ground().sources()),
      fields_(profile),
      hints_(profile) {
    camera_.loadRange(profile);
    home_.load(profile);
    declutter_ = declutterOf(profile.getInt(kOptionsSection, kDeclutterKey, 0));
    openMap();
    camera_.layOut(page_, 0, 0);
}

void Screen::storeState() {
    profile_.setInt(kOptionsSection, kPageKey, static_cast<int>(page_), true);
    camera_.saveRange(profile_);
    home_.save(profile_);
    profile_.setInt(kOptionsSection, kDeclutterKey, static_cast<int>(declutter_), true);
    fields_.store();
}

void Screen::changed() const {
    if (onChanged)
        onChanged();
}

// Time

std::int64_t Screen::nowMs() const { return document_.clock().tickMs(); }

void Screen::tick() {
    if (page_ == PageId::Satellite)
        document_.wantSatellites();
    if (page_ == PageId::NearestAirport || fields_.contains(NavFieldId::NearestAirport))
        document_.wantNearAirports();
    document_.tick();
    if (message_.tick() || (camera_.showsMap() && feeds_.hasNews()) || profileFeed_.hasNews())
        changed();
    if (const std::string message = camera_.tick(); !message.empty())
        say(message);
    // One at a time, so that each can be read; a message that is not read yet goes first.
    if (message().empty())
        if (const std::string trouble = document_.takeTrouble(); !trouble.empty())
            say(trouble);
    takeNews();
    followAttitude();
    actByItself();
    if (onLive)
        onLive(data_.position && !data_.simulated);
    if (const std::string message = announcements_.tick(data_); !message.empty())
        say(message);
    if (message().empty() && document_.lacksReceiverVariation())
        hint(kMessageTexts.noReceiverVariation);
}

void Screen::refresh() {
    document_.refresh();
    takeNews();
    changed();
}

void Screen::takeNews() {
    if (document_.revision() == shownRevision_)
        return;
    shownRevision_ = document_.revision();
    const CockpitData before = std::exchange(data_, document_.cockpitData());
    lists_.follow(before, data_);
    camera_.update(data_);
    home_.update(data_);
    openMap();
    card_.follow(data_);
    if (!areas_.areOf(data_.alarms) || wantsStrip() != laidOutStrip_)
        layOut();
    fitCard();
    changed();
}

/// Where the pilot flew last, else where the simulator would begin.
void Screen::openMap() {
    if (home_.place())
        camera_.openAt(*home_.place());
    else if (!data_.position && !data_.lastPosition)
        camera_.openAt(document_.simulatorStart().position);
}

/// Lets the attitude module's sentences through while its page is shown.
void Screen::followAttitude() {
    AttitudeModule& module = document_.attitudeModule();
    const bool follow =
        page_ == PageId::Attitude && module.isLoaded() && document_.settings().gyroConnected != 0;
    module.setListening(follow);
    if (std::exchange(followsAttitude_, follow) != follow)
        changed();
}

/// Automatic view and zoom, which leave what the pilot looks at alone.
void Screen::actByItself() {
    if (camera_.rests() || ruler_.isOn())
        return;
    const Settings& settings = document_.settings();
    if (settings.autoview)
        if (const auto page = autoView_.tick(page_, data_))
            showPage(*page);
    if (settings.autozoom && camera_.zoomByItself(data_))
        changed();
}

// Room

void Screen::resize(double width, double height, double pxPerMm) {
    if (width == size_.width && height == size_.height && pxPerMm == size_.pxPerMm)
        return;
    size_ = {.width = width, .height = height, .pxPerMm = pxPerMm};
    layOut();
}

void Screen::layOut() {
    ScreenRequest request = size_;
    request.statusLine = true;
    request.profile = laidOutStrip_ = wantsStrip();
    request.fieldCount = fields_.fields().size();
    request.buttonCount = barShown_ ? kTouchBar.size() : 0;
    areas_.layOut(request, page_, data_.alarms, letters_);
    camera_.layOut(page_, areas_.page().width, areas_.page().height);
    fitCard();
    changed();
}

// Pages

void Screen::showPage(PageId page) {
    page_ = page;
    card_.close();
    drag_.cancel();
    camera_.follow();
    lists_.reset();
    layOut();
    if (!camera_.showsMap())
        ruler_.setOn(false);
    followAttitude();
    refresh();
}

void Screen::choosePage(PageId page) {
    autoView_.leaveAlone();
    camera_.letGo();
    showPage(page);
    if (camera_.showsMap())
        hint(kMessageTexts.hintFields);
}

void Screen::goToNextPage() { choosePage(nextPage(page_, document_.settings().displayPages)); }

// The map

void Screen::zoom(int steps, std::optional<Point> about) {
    if (const std::string message = camera_.zoom(steps, document_.settings().autozoom, about);
        !message.empty())
        say(message);
    changed();
}

bool Screen::setRange(int rangeNm) {
    const bool done = camera_.setRange(rangeNm);
    changed();
    return done;
}

void Screen::pan(Point from, Point to) {
    const Settings& settings = document_.settings();
    if (const std::string message = camera_.pan(from, to, settings.autozoom || settings.autoview);
        !message.empty())
        say(message);
    changed();
}

void Screen::backToAircraft() {
    camera_.backToAircraft();
    changed();
}

void Screen::showAircraft() {
    if (!camera_.showsMap())
        choosePage(PageId::Map);
    backToAircraft();
}

void Screen::lookAt(GeoPoint place) {
    if (!camera_.showsMap())
        showPage(PageId::Map);
    camera_.lookAt(place);
    changed();
}

void Screen::declutterMap() {
    declutter_ = nextDeclutter(declutter_);
    say(std::string(text(kDeclutterTexts.at(static_cast<std::size_t>(declutter_)))));
    changed();
}

bool Screen::wantsStrip() const { return hasProfile() && PagePainter::isMap(page_); }

bool Screen::hasProfile() const {
    return MapPlaceOptions::from(document_.settings()).shows(PlaceLayerBit::Profile);
}

void Screen::showProfile(bool shown) {
    Settings settings = document_.settings();
    const unsigned bit = 1U << static_cast<unsigned>(PlaceLayerBit::Profile);
    const auto mask = static_cast<unsigned>(settings.mapMask);
    settings.mapMask = static_cast<int>(shown ? mask | bit : mask & ~bit);
    document_.applySettings(settings);
    if (shown && !camera_.showsMap())
        return choosePage(PageId::Map);
    layOut();
}

/// The first set changes; the other two stay beside it as the preferences have them.
void Screen::rotateNavaids() {
    Settings settings = document_.settings();
    if (!settings.rotateNavaids)
        return say(std::string(text(kMessageTexts.navaidsNotRotated)));
    const NavaidSet next =
        nextNavaidSet(static_cast<NavaidSet>(settings.rotateModes.front()), settings);
    settings.rotateModes.front() = static_cast<int>(next);
    document_.applySettings(settings);
    const Text name = kNavaidSetNames.at(static_cast<std::size_t>(next));
    say(formatText(kMessageTexts.navaidsShown, {text(name)}));
}

std::optional<GeoPoint> Screen::placeToMark() const {
    // Not where the aircraft was last seen.
    return camera_.lookAt() ? camera_.lookAt() : data_.position;
}

std::vector<TapThing> Screen::thingsUnder(Point at) const {
    const auto view = mapView();
    return view ? thingsAt(at, {*view, feeds_, labels_}, document_) : std::vector<TapThing>();
}

void Screen::databasesChanged() {
    feeds_.forget();
    changed();
}

// The ruler

void Screen::setMeasuring(bool on) {
    if (on && !camera_.showsMap())
        showPage(PageId::Map);
    if (on)
        hint(kMessageTexts.measureHint);
    else if (ruler_.isOn())
        say(std::string(text(kMessageTexts.measureEnded)));
    ruler_.setOn(on);
    card_.close();
    changed();
}

MeasureTool::Snap Screen::rulerSnap(const MapProjection& projection) const {
    return [this, &projection](Point finger) {
        return rulerEndAt(finger, {projection, camera_.viewport().currentRangeNm(), feeds_.places(),
                                   data_, document_.charts().database()});
    };
}

void Screen::pressRuler(Point finger) {
    if (const auto projection = camera_.projection())
        ruler_.press(finger, *projection, data_, rulerSnap(*projection));
}

void Screen::dragRuler(Point finger) {
    if (const auto projection = camera_.projection())
        ruler_.drag(finger, rulerSnap(*projection));
    changed();
}

// The card that tells of what was tapped

/// What it must not cover, and should not.
TapCardRoom Screen::cardRoom(Point finger) const {
    const Rect& page = areas_.page();
    TapCardRoom room{.width = page.width,
                     .height = page.height,
                     .boxes = areas_.alarms().areas,
                     .finger = finger};
    const auto projection = camera_.projection();
    const auto& aircraft = data_.position ? data_.position : data_.lastPosition;
    if (projection && aircraft) {
        const Rect area =
            aircraftArea(projection->project(*aircraft), mapTextPx(page.width, page.height));
        if (overlap(area, {0, 0, page.width, page.height}))
            room.aircraft = area;
    }
    if (PagePainter::showsApproach(page_, data_, camera_.lookAt().has_value()))
        room.boxes.push_back(approachBox(page.width, page.height));
    return room;
}

TapCard::Sizes Screen::cardSizes() const {
    const Rect& page = areas_.page();
    return {.textPx = mapTextPx(page.width, page.height),
            .buttonPx = areas_.layout().touchBar.height};
}

void Screen::openCard(std::vector<TapThing> things, Point at, bool byKey) {
    if (things.empty())
        return;
    cardFinger_ = at;
    card_.open(std::move(things), cardRoom(at), cardSizes(), byKey);
    changed();
}

void Screen::openCard(const NearAirport& airport, Point at, bool byKey) {
    if (auto thing = thingOf(airport, document_))
        openCard({std::move(*thing)}, at, byKey);
    else
        say(std::string(text(kFlightTexts.notFound)));
}

void Screen::closeCard() {
    card_.close();
    changed();
}

void Screen::pressCard(std::optional<CardPart> part) {
    card_.press(part);
    changed();
}

void Screen::stepCard(int by) {
    card_.step(by);
    changed();
}

void Screen::moveCardFocus(int by) {
    card_.moveFocus(by, data_);
    changed();
}

void Screen::fitCard() {
    if (card_.isOpen())
        card_.fit(cardRoom(cardFinger_), cardSizes());
}

std::optional<ShownCard> Screen::shownCard(const CockpitData& data) const {
    if (!card_.isOpen())
        return std::nullopt;
    std::optional<Point> mark;
    if (const auto projection = camera_.projection())
        mark = projection->project(card_.thing().position);
    const Rect& page = areas_.page();
    if (mark && !Rect{0, 0, page.width, page.height}.contains(*mark))
        mark.reset();
    return card_.shown(data, mark);
}

void Screen::flyToCard() {
    flyDirect(card_.thing());
    closeCard();
}

void Screen::insertCard() {
    const std::string said = insertIntoPlan(card_.thing(), document_);
    closeCard();
    refresh();
    say(said);
}

void Screen::flyDirect(const TapThing& thing) {
    const std::string said = flyDirectTo(thing, document_);
    refresh();
    say(said);
}

// The plan in a hand

bool Screen::takePlan(Point finger) {
    const auto view = mapView();
    if (!view || !drag_.take(finger, *view, data_))
        return false;
    say(std::string(text(kTouchTexts.pull)));
    return true;
}

void Screen::pullPlan(Point finger) {
    if (const auto view = mapView())
        drag_.pull(finger, *view, feeds_, document_);
    changed();
}

void Screen::dropPlan() {
    const std::string said = drag_.drop(document_);
    refresh();
    if (!said.empty())
        say(said);
}

void Screen::letPlanGo() {
    drag_.cancel();
    changed();
}

// Lists

void Screen::scrollList(int rows) {
    lists_.scroll(listPage(), rows);
    changed();
}

bool Screen::moveMark(int rows) {
    const bool moved = lists_.moveMark(listPage(), rows);
    if (moved)
        changed();
    return moved;
}

bool Screen::liftRow(Point at) {
    const bool lifted = lists_.lift(listPage(), at);
    changed();
    return lifted;
}

void Screen::carryRow(Point at) {
    lists_.carry(listPage(), at);
    changed();
}

void Screen::putRowDown() {
    const auto lifted = lists_.putDown();
    ActivePlan& plan = document_.flight().plan();
    const PlanEntries entries = plan.entries();
    if (lifted && lifted->to != lifted->row && lifted->row < entries.size()) {
        const std::string name(entries[lifted->row].record->ident.view());
        plan.replace(withRowMoved(entries, lifted->row, lifted->to));
        say(formatText(kTouchTexts.rowMoved, {std::string_view(name)}));
    }
    refresh();
}

void Screen::letRowGo() {
    lists_.putDown();
    changed();
}

// Fields, alarms and touch bar

void Screen::setField(std::size_t place, NavFieldId field) {
    fields_.put(place, field);
    layOut();
}

/// A page that shows a value itself leaves its field to the next ones.
std::vector<NavFieldId> Screen::shownFields() const {
    const ScreenLayout& layout = areas_.layout();
    std::vector<NavFieldId> fields(fields_.fields().begin(), fields_.fields().end());
    if (page_ == PageId::Efis)
        std::erase_if(fields, isOnEfisPage);
    return FieldStrip::fitting(fields, layout.arrangement, layout.fields.width,
                               layout.fields.height);
}

std::optional<std::size_t> Screen::fieldAt(Point at) const {
    const ScreenLayout& layout = areas_.layout();
    const std::vector<NavFieldId> shown = shownFields();
    const auto place = FieldStrip::fieldAt(layout.fields, layout.arrangement, shown.size(), at);
    return place ? std::optional(fields_.placeOf(shown[*place])) : std::nullopt;
}

bool Screen::acknowledgeAlarm(std::size_t place) {
    const bool done = document_.flight().alarms().acknowledge(place);
    if (done)
        refresh();
    return done;
}

void Screen::setBarMayHide(bool mayHide) {
    barMayHide_ = mayHide;
    if (mayHide)
        hint(kMessageTexts.hintFullScreen);
    barShown_ = true;
    layOut();
}

void Screen::showBar(bool shown) {
    barShown_ = shown;
    layOut();
}

// Words

void Screen::say(const std::string& message) {
    message_.say(message);
    changed();
}

void Screen::hint(Text hint) {
    if (document_.settings().showHints && hints_.take(hint))
        say(std::string(text(hint)));
}

// Painting

CockpitData Screen::dataToShow() const {
    CockpitData shown = data_;
    if (!message().empty())
        shown.message = message();
    return shown;
}

/// None on a page without a map and while there is nothing to look at.
std::optional<MapView> Screen::mapView() const {
    const auto middle = camera_.center();
    if (!camera_.showsMap() || !middle)
        return std::nullopt;
    return MapView(camera_.viewport(), *middle, camera_.upDeg(),
                   {0, 0, areas_.page().width, areas_.page().height});
}

void Screen::updateFeeds() {
    Settings shown = document_.settings();
    declutter(shown, declutter_);
    updateProfile(shown);
    const auto view = mapView();
    if (!view)
        return;
    const bool news = feeds_.update({*view, data_, shown});
    // This painting shows what there is; the next one what is still to be read.
    if (news && !feeds_.isComplete())
        changed();
}

void Screen::updateProfile(const Settings& shown) {
    const Rect& strip = areas_.layout().profile;
    if (strip.height <= 0 && page_ != PageId::Profile)
        return profileFeed_.rest();
    // Without an aircraft there is only the plan to look at, all of it.
    std::optional<double> lengthNm;
    if (data_.position)
        lengthNm = profileLengthNm(camera_.viewport().currentRangeNm());
    profileFeed_.update({data_, shown, lengthNm, areas_.page().width});
}

PageScene Screen::scene(const CockpitData& data, const AttitudeView& attitude) {
    labels_.clear();
    return {.data = data,
            .viewport = camera_.viewport(),
            .upTrueDeg = camera_.upDeg(),
            .lookAt = camera_.lookAt(),
            .openAt = camera_.opening(),
            .sparseNote = declutter_ == Declutter::Full
                              ? nullptr
                              : &kDeclutterTexts.at(static_cast<std::size_t>(declutter_)),
            .feeds = &feeds_,
            .measure = &ruler_,
            .profile = &profileFeed_.content(),
            .band = drag_.band(),
            .nearest = lists_.nearest(),
            .airspaces = lists_.airspaces(),
            .plan = lists_.plan(),
            .attitude = attitude,
            .alarms = areas_.alarms().areas,
            .card = shownCard(data),
            .labels = &labels_,
            .trustMarks = false};
}

}  // namespace korvel
