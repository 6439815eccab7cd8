#include "screen/TapCard.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "base/TextNumbers.h"
#include "cockpit/TrafficWatch.h"
#include "config/texts/InstrumentTexts.h"
#include "config/texts/TouchTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "map/MeasureTool.h"
#include "pages/NavField.h"
#include "pages/PlanFigures.h"
#include "paint/LabelSpace.h"

namespace korvel {
namespace {

constexpr std::array kParts{CardPart::Direct, CardPart::Insert, CardPart::Info, CardPart::Next};
constexpr double kSecondsPerHour = 3600;

/// Takes up where it is by now; false when it is gone.
bool isThere(TapThing& thing, const CockpitData& data) {
    if (thing.kind == TapKind::Traffic) {
        if (!data.traffic)
            return false;
        const auto found = std::ranges::find(*data.traffic, thing.ident, &TrafficView::name);
        if (found == data.traffic->end())
            return false;
        thing.position = found->position;
        thing.lines = {trafficMotion(*found, data.altUnit)};
    }
    if (thing.kind == TapKind::Leg)
        return data.plan && thing.row < data.plan->rows.size() &&
               data.plan->rows[thing.row].key == thing.record->key;
    return true;
}

}  // namespace

void TapCard::open(std::vector<TapThing> things, const TapCardRoom& room, const Sizes& sizes,
                   bool byKey) {
    things_ = std::move(things);
    shown_ = 0;
    pressed_.reset();
    focus_ = byKey ? std::optional(CardPart::Direct) : std::nullopt;
    place(room, sizes);
}

void TapCard::place(const TapCardRoom& room, const Sizes& sizes) {
    size_ = tapCardSize(room, sizes.textPx, sizes.buttonPx, mostLines());
    area_ = placeTapCard(room, size_);
    pageWidth_ = room.width;
    pageHeight_ = room.height;
}

std::size_t TapCard::mostLines() const {
    std::size_t most = 0;
    for (const TapThing& thing : things_)
        most = std::max(most, thing.lines.size());
    return most;
}

void TapCard::follow(const CockpitData& data) {
    const auto isGone = [&](TapThing& thing) { return !isThere(thing, data); };
    for (std::size_t i = things_.size(); i-- > 0;) {
        if (!isGone(things_[i]))
            continue;
        things_.erase(things_.begin() + static_cast<std::ptrdiff_t>(i));
        if (i < shown_)
            --shown_;
        else if (i == shown_)
            return close();  // another thing under a thumb on its way would be the wrong one
    }
}

void TapCard::fit(const TapCardRoom& room, const Sizes& sizes) {
    if (!isOpen())
        return;
    const bool covers = room.aircraft.width > 0 && overlap(area_, room.aircraft);
    if (covers || room.width != pageWidth_ || room.height != pageHeight_)
        place(room, sizes);
}

void TapCard::step(int by) {
    const auto count = static_cast<int>(things_.size());
    shown_ = static_cast<std::size_t>((static_cast<int>(shown_) + by + count) % count);
}

bool TapCard::canPress(CardPart part, const CockpitData& data) const {
    const TapKind kind = thing().kind;
    switch (part) {
        case CardPart::Direct:
            return kind != TapKind::Traffic && data.position.has_value();
        case CardPart::Insert:
            return kind != TapKind::Traffic;
        case CardPart::Info:
            return kind != TapKind::Obstacle && kind != TapKind::Airspace;
        case CardPart::Next:
            return things_.size() > 1;
    }
    return false;
}

void TapCard::moveFocus(int by, const CockpitData& data) {
    const auto count = static_cast<int>(kParts.size());
    int at = focus_ ? static_cast<int>(*focus_) : (by > 0 ? -1 : count);
    for (int tried = 0; tried < count; ++tried) {
        at = (at + by + count) % count;
        if (canPress(kParts.at(static_cast<std::size_t>(at)), data)) {
            focus_ = kParts.at(static_cast<std::size_t>(at));
            return;
        }
    }
}

ShownCard TapCard::shown(const CockpitData& data, std::optional<Point> mark) const {
    ShownCard card{.view = view(data), .area = area_, .size = size_};
    card.view.mark = mark;
    return card;
}

TapCardView TapCard::view(const CockpitData& data) const {
    const TapThing& shown = thing();
    TapCardView view{
        .ident = shown.ident, .name = shown.name, .expired = shown.expired, .lines = shown.lines};
    std::array<std::string, TapCardView::kFigures> values;
    values.fill(std::string(kNoValue));
    if (data.position) {
        const double nm = DistanceNm(*data.position, shown.position);
        const auto seconds = secondsOver(nm, data);
        values = {courseText(TrueCourseDeg(*data.position, shown.position), data.variationDeg),
                  distanceText(nm, data.distanceUnit),
                  durationText(seconds ? std::optional(*seconds / kSecondsPerHour) : std::nullopt)};
    }
    const std::array headers{kInstrumentTexts.bearing, kInstrumentTexts.distance,
                             kInstrumentTexts.ete};
    const std::array words{kInstrumentTexts.touchDirect, kTouchTexts.insert,
                           shown.kind == TapKind::Ground ? kTouchTexts.mark : kTouchTexts.info};
    for (std::size_t i = 0; i < values.size(); ++i) {
        view.figures[i] = {text(headers[i]), std::move(values[i])};
        view.buttons[i] = {text(words[i]), canPress(kParts[i], data)};
    }
    if (things_.size() > 1)
        view.step = formatInt(static_cast<long long>(shown_) + 1) + "/" +
                    formatInt(static_cast<long long>(things_.size()));
    view.focus = focus_;
    view.pressed = pressed_;
    return view;
}

}  // namespace korvel
