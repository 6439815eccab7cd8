#include "map/layers/TrafficLayer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "cockpit/CockpitData.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "paint/Clip.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr double kSecondsAhead = 60;
constexpr int kOldSec = 15;
constexpr int kTrendFpm = 300;
constexpr double kTextShare = 0.95;  ///< of the map's other labels
constexpr double kFaded = 0.55;

/// "+05" in hundreds of feet, "-120m" in metres.
std::string heightWords(int aboveFt, int altUnit) {
    constexpr int kHundred = 100;
    const std::string sign = aboveFt < 0 ? "-" : "+";
    if (altUnit == 1)
        return sign + formatInt(RoundToInt(std::abs(aboveFt) * kMetresPerFoot)) + "m";
    return sign + zeroPadded((std::abs(aboveFt) + kHundred / 2) / kHundred, 2);
}

int trendOf(const TrafficView& traffic) {
    const int fpm = traffic.verticalSpeedFpm.value_or(0);
    return fpm >= kTrendFpm ? 1 : fpm <= -kTrendFpm ? -1 : 0;
}

/// An arrowhead along the way, a diamond where that is not known.
std::vector<Point> outline(Point at, double size, const std::optional<double>& angleDeg) {
    if (!angleDeg)
        return {{at.x, at.y - size}, {at.x + size, at.y}, {at.x, at.y + size}, {at.x - size, at.y}};
    const auto corner = [&](double degrees, double length) {
        const double angle = (*angleDeg + degrees) * kDegToRad;
        return Point{at.x + length * std::sin(angle), at.y - length * std::cos(angle)};
    };
    return {corner(0, 1.2 * size), corner(140, 1.1 * size), corner(180, 0.45 * size),
            corner(220, 1.1 * size)};
}

}  // namespace

void TrafficLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    if (content().data.traffic == nullptr)
        return;
    const Rect seen = grown(view().area, size());
    for (const TrafficView& traffic : *content().data.traffic) {
        const Point at = view().projection.project(traffic.position);
        if (!seen.contains(at))
            continue;
        if (marks_.size() == kMostShown)
            break;
        Mark mark{.at = at,
                  .level = traffic.level,
                  .old = traffic.ageSec >= kOldSec,
                  .airborne = traffic.airborne};
        if (traffic.trackTrueDeg)
            mark.angleDeg = *traffic.trackTrueDeg - view().projection.angleDeg();
        if (traffic.trackTrueDeg && traffic.groundSpeedKt) {
            const GeoPoint ahead = movedOn({.position = traffic.position,
                                            .trackTrueDeg = traffic.trackTrueDeg,
                                            .groundSpeedKt = traffic.groundSpeedKt},
                                           kSecondsAhead);
            mark.minuteAhead = clipSegment({at, view().projection.project(ahead)}, seen);
        }
        if (traffic.aboveFt && traffic.airborne)
            mark.words = heightWords(*traffic.aboveFt, content().data.altUnit);
        mark.trend = traffic.airborne ? trendOf(traffic) : 0;
        place(mark, texts, room);
        marks_.push_back(std::move(mark));
    }
}

/// Words that find no room go, but for those of who is too near.
void TrafficLayer::place(Mark& mark, const TextMeasure& texts, LabelRoom& room) const {
    const double half = 1.2 * size();
    room.taken.reserve({mark.at.x - half, mark.at.y - half, 2 * half, 2 * half});
    if (mark.words.empty() && mark.trend == 0)
        return;
    const TextStyle manner = style(0);
    const TextExtent extent = texts.measure(mark.words, manner.font);
    const double trend = mark.trend == 0 ? 0 : size();
    const std::array places{Point{mark.at.x + half + 2, mark.at.y},
                            Point{mark.at.x - half - 2 - trend - extent.width, mark.at.y}};
    for (const Point& at : places) {
        Rect box = textBox(at, extent, manner);
        box.width += trend;
        mark.wordsAt = at;
        if (room.taken.claim(box))
            return;
    }
    mark.wordsAt = places[0];
    if (mark.level < TrafficLevel::Caution) {
        mark.words.clear();
        mark.trend = 0;
    }
}

ColorValue TrafficLayer::colorOf(TrafficLevel level) const {
    switch (level) {
        case TrafficLevel::Alert:
            return color(ColorKey::MapObstacleDanger);
        case TrafficLevel::Caution:
            return color(ColorKey::MapObstacleCaution);
        default:
            return color(ColorKey::HsiAirplane);
    }
}

TextStyle TrafficLayer::style(ColorValue ink) const {
    return {.font = {.height = view().textPx * kTextShare, .weight = FontWeight::Bold},
            .color = ink,
            .alignX = AlignX::Left,
            .alignY = AlignY::Middle,
            .halo = color(ColorKey::MapBackground)};
}

void TrafficLayer::paint(Canvas& canvas) const {
    std::for_each(
        marks_.rbegin(), marks_.rend(),
        [&](const Mark& mark) {
            paintSymbol(canvas, mark);
            if (!mark.words.empty())
                canvas.text(mark.wordsAt, mark.words, style(color(ColorKey::HsiAirplane)));
            if (mark.trend != 0)
                paintTrend(canvas, mark);
        });
}

/// The shape tells as well as the colour: hollow far away, filled when near, on a disc when too
/// near, on a square before a collision.
void TrafficLayer::paintSymbol(Canvas& canvas, const Mark& mark) const {
    const ColorValue rim = color(ColorKey::MapBackground);
    ColorValue ink = color(ColorKey::HsiAirplane);
    if (mark.old)
        ink = blended(ink, rim, kFaded);
    if (mark.minuteAhead) {
        canvas.line(mark.minuteAhead->from, mark.minuteAhead->to, {rim, 4});
        canvas.line(mark.minuteAhead->from, mark.minuteAhead->to, {ink, 2});
    }
    const double ground = 1.5 * size();
    const Brush warning{colorOf(mark.level)};
    if (mark.level == TrafficLevel::Alert)
        canvas.rect({mark.at.x - ground, mark.at.y - ground, 2 * ground, 2 * ground}, warning,
                    Pen{rim, 2});
    if (mark.level == TrafficLevel::Caution)
        canvas.circle(mark.at, ground, warning, Pen{rim, 2});
    const bool isHollow = mark.level == TrafficLevel::Far;
    const std::vector<Point> shape = outline(mark.at, size(mark), mark.angleDeg);
    canvas.polygon(shape, Brush{isHollow ? rim : ink}, Pen{isHollow ? ink : rim, 2});
}

void TrafficLayer::paintTrend(Canvas& canvas, const Mark& mark) const {
    const double width =
        mark.words.empty() ? 0 : canvas.textMeasure().measure(mark.words, style(0).font).width;
    const double x = mark.wordsAt.x + width + 0.5 * size();
    const double up = mark.trend * 0.6 * size();
    const Point tip{x, mark.wordsAt.y - up};
    const std::array arrow{Segment{{x, mark.wordsAt.y + up}, tip},
                           Segment{{x - 0.3 * size(), tip.y + 0.6 * up}, tip},
                           Segment{{x + 0.3 * size(), tip.y + 0.6 * up}, tip}};
    canvas.lines(arrow, {color(ColorKey::MapBackground), 4});
    canvas.lines(arrow, {color(ColorKey::HsiAirplane), 2});
}

const TrafficView* trafficAt(const TrafficList& list, const MapProjection& projection, Point finger,
                             double radiusPx) {
    const TrafficView* nearest = nullptr;
    double least = radiusPx;
    for (const TrafficView& traffic : list) {
        const Point at = projection.project(traffic.position);
        const double distance = std::hypot(at.x - finger.x, at.y - finger.y);
        if (distance <= least) {
            nearest = &traffic;
            least = distance;
        }
    }
    return nearest;
}

}  // namespace korvel
