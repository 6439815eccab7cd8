#include "map/layers/ObstacleLayer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/TextNumbers.h"
#include "cockpit/CockpitData.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "paint/Clip.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr int kTallFt = 1000;  ///< above ground
constexpr int kCautionFt = 1000;
constexpr int kDangerFt = 100;
constexpr int kHeightsToNm = 15;  ///< farther out only what endangers has its height
constexpr double kTextShare = 0.85;
constexpr double kFaded = 0.3;  ///< what is far below
constexpr double kFoot = 0.35;  ///< half the symbol's width in its height
constexpr double kCasing = 2;   ///< pixels, to both sides together

/// Without the unit, which is that of all heights.
std::string topText(const Obstacle& obstacle, int altUnit) {
    return formatInt(altUnit == 1 ? RoundToInt(obstacle.topFt * kMetresPerFoot) : obstacle.topFt);
}

}  // namespace

ObstacleLevel levelOf(const Obstacle& obstacle, std::optional<int> altitudeFt) {
    if (!altitudeFt || obstacle.topFt <= *altitudeFt - kCautionFt)
        return ObstacleLevel::Below;
    return obstacle.topFt > *altitudeFt - kDangerFt ? ObstacleLevel::Danger
                                                    : ObstacleLevel::Caution;
}

void ObstacleLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    if (content().obstacles == nullptr)
        return;
    const Rect seen = grown(view().area, view().textPx);
    const std::optional<int> altitudeFt = content().data.seaAltitudeFt();
    for (const Obstacle& obstacle : *content().obstacles) {
        const Point at = view().projection.project(obstacle.position);
        if (!seen.contains(at))
            continue;
        if (marks_.size() == kMostShown)
            break;
        Mark mark{
            .at = at, .level = levelOf(obstacle, altitudeFt), .tall = obstacle.aglFt >= kTallFt};
        const bool wanted = view().rangeNm <= kHeightsToNm || mark.level != ObstacleLevel::Below;
        if (content().obstacleHeights && wanted)
            mark.words = topText(obstacle, content().data.altUnit);
        place(mark, texts, room);
        marks_.push_back(std::move(mark));
    }
}

/// A height that finds no room goes; the symbol stays.
void ObstacleLayer::place(Mark& mark, const TextMeasure& texts, LabelRoom& room) const {
    const double tall = height(mark);
    const double half = kFoot * tall;
    if (!mark.words.empty()) {
        const TextStyle manner = style(0);
        const TextExtent extent = texts.measure(mark.words, manner.font);
        const double middle = mark.at.y - tall / 2;
        const std::array places{Point{mark.at.x + half + kCasing, middle},
                                Point{mark.at.x - half - kCasing - extent.width, middle}};
        std::array<Rect, 2> boxes{};
        for (std::size_t i = 0; i < places.size(); ++i)
            boxes.at(i) = textBox(places.at(i), extent, manner);
        if (const auto found = claimFirst(room.taken, boxes, room.planLines))
            mark.wordsAt = places.at(*found);
        else
            mark.words.clear();
    }
    room.taken.reserve({mark.at.x - half, mark.at.y - tall, 2 * half, tall});
}

ColorValue ObstacleLayer::colorOf(ObstacleLevel level) const {
    switch (level) {
        case ObstacleLevel::Danger:
            return color(ColorKey::MapObstacleDanger);
        case ObstacleLevel::Caution:
            return color(ColorKey::MapObstacleCaution);
        default:
            return blended(color(ColorKey::GeoLabel), color(ColorKey::MapBackground), kFaded);
    }
}

TextStyle ObstacleLayer::style(ColorValue ink) const {
    return {.font = {.height = view().textPx * kTextShare},
            .color = ink,
            .alignX = AlignX::Left,
            .alignY = AlignY::Middle,
            .halo = color(ColorKey::MapBackground)};
}

void ObstacleLayer::paintMarks(Canvas& canvas, bool near) const {
    const auto isNear = [](const Mark& mark) { return mark.level != ObstacleLevel::Below; };
    // The tallest on top.
    std::for_each(marks_.rbegin(), marks_.rend(), [&](const Mark& mark) {
        if (isNear(mark) == near)
            paintSymbol(canvas, mark);
    });
    for (const Mark& mark : marks_)
        if (isNear(mark) == near && !mark.words.empty())
            canvas.text(mark.wordsAt, mark.words, style(colorOf(mark.level)));
}

/// The shape tells as well as the colour: two legs below, closed where it is near, filled where it
/// reaches the aircraft.
void ObstacleLayer::paintSymbol(Canvas& canvas, const Mark& mark) const {
    const double tall = height(mark);
    const std::array corners{Point{mark.at.x - kFoot * tall, mark.at.y},
                             Point{mark.at.x, mark.at.y - tall},
                             Point{mark.at.x + kFoot * tall, mark.at.y}};
    const ColorValue ink = colorOf(mark.level);
    const ColorValue rim = color(ColorKey::MapBackground);
    constexpr double kWidth = 2;
    if (mark.level == ObstacleLevel::Below) {
        canvas.polyline(corners, {.color = rim, .width = kWidth + kCasing});
        canvas.polyline(corners, {.color = ink, .width = kWidth});
        return;
    }
    const bool filled = mark.level == ObstacleLevel::Danger;
    canvas.polygon(corners, Brush{filled ? ink : rim}, Pen{rim, kWidth + kCasing});
    canvas.polygon(corners, std::nullopt, Pen{ink, kWidth});
    if (filled)
        canvas.polygon(corners, Brush{ink}, std::nullopt);
}

const Obstacle* obstacleAt(std::span<const Obstacle> obstacles, const MapProjection& projection,
                           Point finger, double radiusPx) {
    const Obstacle* nearest = nullptr;
    double least = radiusPx;
    for (const Obstacle& obstacle : obstacles) {
        const Point at = projection.project(obstacle.position);
        const double distance = std::hypot(at.x - finger.x, at.y - finger.y);
        if (distance < least) {
            nearest = &obstacle;
            least = distance;
        }
    }
    return nearest;
}

}  // namespace korvel
