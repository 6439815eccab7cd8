#include "map/layers/RangeRingLayer.h"

#include <algorithm>
#include <array>

#include "cockpit/PlaceSet.h"
#include "geo/GeoText.h"
#include "map/MapFrame.h"
#include "paint/Clip.h"
#include "paint/LabelSpace.h"
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

/// The text with the boxes where it may stand, best first.
std::vector<RingLabel> candidates(const TextMeasure& texts, Point center, double radius,
                                  const std::string& text, double textPx) {
    const TextStyle style = labelStyle(textPx);
    const TextExtent extent = texts.measure(text, style.font);
    std::vector<RingLabel> found;
    for (const int angle : kLabelAngles) {
        const Point at = polar(center, radius, angle);
        found.push_back({.text = text, .at = at, .box = grown(textBox(at, extent, style), 3)});
    }
    return found;
}

}  // namespace

std::vector<RingLabel> layOutRingLabels(const TextMeasure& texts, const MapProjection& projection,
                                        Point aircraft, int rangeNm, double textPx,
                                        const PlaceSet* places, LabelSpace& labels) {
    const std::vector<Point> symbols = pointsOf(places, projection);
    const auto isClear = [&](const RingLabel& label) {
        const Rect area = grown(label.box, kSymbolPx);
        return std::ranges::none_of(symbols, [&](Point at) { return area.contains(at); });
    };
    std::vector<RingLabel> found;
    for (const double share : kShares) {
        const double distanceNm = rangeNm * share;
        const auto spots = candidates(texts, aircraft, distanceNm * projection.pixelsPerNm(),
                                      distanceText(distanceNm), textPx);
        const auto clear = [&](const RingLabel& label) {
            return isClear(label) && labels.claim(label.box);
        };
        auto spot = std::ranges::find_if(spots, clear);
        if (spot == spots.end())
            spot = std::ranges::find_if(
                spots, [&](const RingLabel& label) { return labels.claim(label.box); });
        if (spot != spots.end())
            found.push_back(*spot);
    }
    return found;
}

void paintRangeRings(const MapFrame& frame, Canvas& canvas) {
    const Pen pen{
        blended(frame.colors[ColorKey::MapGrid], frame.colors[ColorKey::MapBackground], kFaded), 1,
        PenStyle::Solid};
    for (const double share : kShares)
        canvas.circle(frame.aircraft, frame.rangeNm * share * frame.projection.pixelsPerNm(),
                      std::nullopt, pen);
}

void paintRingLabels(const MapFrame& frame, Canvas& canvas) {
    TextStyle style = labelStyle(frame.textPx);
    style.color = frame.colors[ColorKey::MapGrid];
    for (const RingLabel& label : frame.ringLabels) {
        canvas.rect(label.box, Brush{frame.colors[ColorKey::MapBackground]}, std::nullopt);
        canvas.text(label.at, label.text, style);
    }
}

}  // namespace korvel
