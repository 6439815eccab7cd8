#include "map/layers/CompassRoseLayer.h"

#include <algorithm>
#include <cmath>

#include "base/TextNumbers.h"
#include "cockpit/CockpitData.h"
#include "cockpit/PlaceSet.h"
#include "geo/Geodesy.h"
#include "map/layers/PlaceSymbol.h"
#include "paint/Clip.h"
#include "paint/Polar.h"

namespace korvel {
namespace {

constexpr int kFullCircle = 360;
constexpr double kRoseNm = 3;
constexpr double kSmallestRosePx = 44;
constexpr double kLargestRosePx = 110;
constexpr double kRosesApart = 1.8;  // in radii
constexpr double kRoseFaded = 0.35;

}  // namespace

bool CompassRoseLayer::showsRose(const MapPlace& place) const {
    const CockpitData& data = content().data;
    const auto ends = [&](const std::optional<GeoPoint>& leg) {
        return leg && SamePoint(*leg, place.place.position);
    };
    return isVor(place.placeClass) && place.variationDeg &&
           (ends(data.activeWaypoint) || ends(data.legStart)) &&
           isShown(place.place, place.placeClass, view().rangeNm, content().places->options);
}

void CompassRoseLayer::layOut(const TextMeasure& /*texts*/, LabelRoom& /*room*/) {
    const PlaceSet* places = content().places;
    if (places == nullptr || !places->options.shows(PlaceLayerBit::CompassRoses))
        return;
    const MapProjection& projection = view().projection;
    radius_ = std::clamp(kRoseNm * projection.pixelsPerNm(), kSmallestRosePx, kLargestRosePx);
    const Rect room = grown(view().area, radius_);
    for (const MapPlace& vor : places->places) {
        if (!showsRose(vor))
            continue;
        const Point center = projection.project(vor.place.position);
        const auto meets = [&](const Rose& other) {
            return std::hypot(center.x - other.center.x, center.y - other.center.y) <
                   kRosesApart * radius_;
        };
        // Two roses on top of each other could not be read: the more important VOR has its own.
        if (room.contains(center) && std::ranges::none_of(roses_, meets))
            roses_.push_back({center, RoundToInt(*vor.variationDeg) - projection.angleDeg()});
    }
}

void CompassRoseLayer::paint(Canvas& canvas) const {
    for (const Rose& rose : roses_)
        paint(canvas, rose);
}

void CompassRoseLayer::paint(Canvas& canvas, const Rose& rose) const {
    const auto& [center, northDeg] = rose;
    const ColorValue background = color(ColorKey::MapBackground);
    const ColorValue ink =
        blended(visible(color(ColorKey::MapVor), content().colors), background, kRoseFaded);
    std::vector<Segment> ticks;
    for (int deg = 0; deg < kFullCircle; deg += 10) {
        const double length = radius_ * (deg % 30 == 0 ? 0.16 : 0.08);
        ticks.push_back({polar(center, radius_, northDeg + deg),
                         polar(center, radius_ - length, northDeg + deg)});
    }
    // Magnetic north as an arrow.
    ticks.push_back({center, polar(center, radius_, northDeg)});
    for (const int side : {-4, 4})
        ticks.push_back(
            {polar(center, radius_, northDeg), polar(center, radius_ * 0.84, northDeg + side)});
    canvas.circle(center, radius_, std::nullopt, Pen{ink, 1, PenStyle::Solid});
    canvas.lines(ticks, {ink, 1, PenStyle::Solid});

    const TextStyle style{.font = {.height = std::max(11.0, std::round(view().textPx * 0.7))},
                          .color = ink,
                          .alignX = AlignX::Center,
                          .alignY = AlignY::Middle,
                          .halo = background};
    const int step = radius_ > 5 * style.font.height ? 30 : 90;
    for (int deg = step; deg <= kFullCircle; deg += step)
        canvas.text(polar(center, radius_ * 0.72, northDeg + deg), formatInt(deg / 10), style);
}

}  // namespace korvel
