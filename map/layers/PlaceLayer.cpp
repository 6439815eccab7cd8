#include "map/layers/PlaceLayer.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "map/MapFrame.h"
#include "map/layers/PlaceLayout.h"
#include "map/layers/PlaceSymbol.h"
#include "paint/Clip.h"
#include "paint/Polar.h"

namespace korvel {
namespace {

constexpr int kFullCircle = 360;

// Compass roses

constexpr double kRoseNm = 3;
constexpr double kSmallestRosePx = 44;
constexpr double kLargestRosePx = 110;
constexpr double kRosesApart = 1.8;  // in radii
constexpr double kRoseFaded = 0.35;

void paintRose(const MapFrame& frame, Canvas& canvas, Point center, double radius, int northDeg) {
    const ColorValue background = frame.colors[ColorKey::MapBackground];
    const ColorValue ink =
        blended(visible(frame.colors[ColorKey::MapVor], frame.colors), background, kRoseFaded);
    std::vector<Segment> ticks;
    for (int deg = 0; deg < kFullCircle; deg += 10) {
        const double length = radius * (deg % 30 == 0 ? 0.16 : 0.08);
        ticks.push_back({polar(center, radius, northDeg + deg),
                         polar(center, radius - length, northDeg + deg)});
    }
    // Magnetic north as an arrow.
    ticks.push_back({center, polar(center, radius, northDeg)});
    for (const int side : {-4, 4})
        ticks.push_back(
            {polar(center, radius, northDeg), polar(center, radius * 0.84, northDeg + side)});
    canvas.circle(center, radius, std::nullopt, Pen{ink, 1, PenStyle::Solid});
    canvas.lines(ticks, {ink, 1, PenStyle::Solid});

    const TextStyle style{.font = {.height = std::max(11.0, std::round(frame.textPx * 0.7))},
                          .color = ink,
                          .alignX = AlignX::Center,
                          .alignY = AlignY::Middle,
                          .halo = background};
    const int step = radius > 5 * style.font.height ? 30 : 90;
    for (int deg = step; deg <= kFullCircle; deg += step)
        canvas.text(polar(center, radius * 0.72, northDeg + deg), formatInt(deg / 10), style);
}

}  // namespace

void paintCompassRoses(const MapFrame& frame, Canvas& canvas) {
    if (frame.places == nullptr || !frame.places->options.shows(PlaceLayerBit::CompassRoses))
        return;
    const double radius =
        std::clamp(kRoseNm * frame.projection.pixelsPerNm(), kSmallestRosePx, kLargestRosePx);
    const Rect room = grown(frame.view, radius);
    std::vector<Point> roses;
    for (const MapPlace& vor : frame.places->places) {
        if (!isVor(vor.placeClass) || !vor.variationDeg ||
            !isShown(vor.place, vor.placeClass, frame.rangeNm, frame.places->options))
            continue;
        const Point center = frame.projection.project(vor.place.position);
        const auto meets = [&](Point other) {
            return std::hypot(center.x - other.x, center.y - other.y) < kRosesApart * radius;
        };
        // Two roses on top of each other could not be read: the more important VOR has its own.
        if (!room.contains(center) || std::any_of(roses.begin(), roses.end(), meets))
            continue;
        roses.push_back(center);
        paintRose(frame, canvas, center, radius,
                  RoundToInt(*vor.variationDeg) - frame.projection.angleDeg());
    }
}

void paintPlaces(const MapFrame& frame, Canvas& canvas) {
    if (frame.places == nullptr)
        return;
    const std::vector<PlaceMark> marks = layOutPlaces(frame, canvas.textMeasure());
    const PlaceSymbols symbols(frame);
    // The most important ones on top.
    std::for_each(marks.rbegin(), marks.rend(),
                  [&](const PlaceMark& mark) { symbols.paint(canvas, mark); });
}

void paintNames(const MapFrame& frame, Canvas& canvas) {
    for (const MapName& name : frame.names)
        canvas.text(name.anchor, name.text, name.style);
}

}  // namespace korvel
