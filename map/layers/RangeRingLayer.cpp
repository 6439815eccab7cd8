#include "map/layers/RangeRingLayer.h"

#include <algorithm>
#include <array>

#include "cockpit/CockpitData.h"
#include "cockpit/PlaceSet.h"
#include "geo/GeoText.h"
#include "paint/Clip.h"
#include "paint/Polar.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr double kFaded = 0.45;
// Where on a ring its distance may stand, in degrees from the top: ahead and to the side first.
constexpr std::array kLabelAngles{40, -40, 60, -60, 20, -20, 90, -90, 130, -130, 180};

constexpr std::array kShares{1.0, 0.5};  // of the display range, a ring at each

TextStyle labelStyle(double textPx) {
    return {.font = {.height = textPx, .weight = FontWeight::Bold},
            .alignX = AlignX::Center,
            .alignY = AlignY::Middle};
}

constexpr double kSymbolPx = 8;  // of a place's symbol around its point

std::vector<Point> pointsOf(const PlaceSet* places, const MapProjection& projection) {
    std::vector<Point> points;
    if (places == nullptr)
        return points;
    points.reserve(places->places.size());
    for (const MapPlace& place : places->places)
        points.push_back(projection.project(place.place.position));
    return points;
}

}  // namespace

/// The text with the boxes where it may stand, best first.
std::vector<RangeRingLayer::Label> RangeRingLayer::candidates(const TextMeasure& texts,
                                                              double distanceNm) const {
    const std::string text = distanceText(distanceNm, content().data.distanceUnit);
    const TextStyle style = labelStyle(view().textPx);
    const TextExtent extent = texts.measure(text, style.font);
    const double radius = distanceNm * view().projection.pixelsPerNm();
    std::vector<Label> found;
    for (const int angle : kLabelAngles) {
        const Point at = polar(content().aircraft(), radius, angle);
        found.push_back({.text = text, .at = at, .box = grown(textBox(at, extent, style), 3)});
    }
    return found;
}

/// Ahead and to the side before behind, and where no place's symbol lies if there is such a point.
void RangeRingLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    const std::vector<Point> symbols = pointsOf(content().places, view().projection);
    const auto isClear = [&](const Label& label) {
        const Rect area = grown(label.box, kSymbolPx);
        return std::ranges::none_of(symbols, [&](Point at) { return area.contains(at); });
    };
    for (const double share : kShares) {
        const auto spots = candidates(texts, view().rangeNm * share);
        const auto clear = [&](const Label& label) {
            return isClear(label) && room.taken.claim(label.box);
        };
        auto spot = std::ranges::find_if(spots, clear);
        if (spot == spots.end())
            spot = std::ranges::find_if(
                spots, [&](const Label& label) { return room.taken.claim(label.box); });
        if (spot != spots.end())
            labels_.push_back(*spot);
    }
}

void RangeRingLayer::paint(Canvas& canvas) const {
    const Pen pen{blended(color(ColorKey::MapGrid), color(ColorKey::MapBackground), kFaded), 1,
                  PenStyle::Solid};
    for (const double share : kShares)
        canvas.circle(content().aircraft(),
                      view().rangeNm * share * view().projection.pixelsPerNm(), std::nullopt, pen);
}

void RangeRingLayer::paintWords(Canvas& canvas) const {
    TextStyle style = labelStyle(view().textPx);
    style.color = color(ColorKey::MapGrid);
    for (const Label& label : labels_) {
        if (content().ground == nullptr)  // a box on land or water would be a hole in it
            canvas.rect(label.box, Brush{color(ColorKey::MapBackground)}, std::nullopt);
        canvas.text(label.at, label.text, style);
    }
}

}  // namespace korvel
