#include "pages/HsiGeometry.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "geo/WholeDegreeTrig.h"

namespace korvel {
namespace {

constexpr int kLargestRadius = 200;
constexpr int kCardInset = 15;
constexpr int kLongTick = 15;
constexpr int kShortTick = 10;
constexpr int kReadOutPadding = 4;
constexpr int kPointerDepth = 5;
constexpr int kPointerHalfWidth = 20;

// Shares of the card's radius less the label height.
constexpr double kMarkStep = 0.12;  // from one deviation mark to the next
constexpr double kBarHalfLength = 0.42;
constexpr double kNeedleFrom = 0.45;
constexpr double kHeadLength = 0.13;
constexpr double kHeadHalfWidth = 0.065;
constexpr double kTipInset = kLongTick + 4;

constexpr int turned(int angle) { return (angle % 360 + 360) % 360; }

}  // namespace

void HsiState::place(int x, int y) {
    centerX = x;
    centerY = y;
    radius = std::min(x, kLargestRadius);
}

int HsiGeometry::cardRadius() const { return state_.radius - kCardInset; }

double HsiGeometry::inner() const { return std::max(0, cardRadius() - state_.labelHeight); }

Point HsiGeometry::at(double radius, int angle) const { return beside(angle, radius, 0); }

Point HsiGeometry::beside(int angle, double along, double right) const {
    const double x = along * CosDeg(angle) + right * CosDeg(angle - 90);
    const double y = along * SinDeg(angle) + right * SinDeg(angle - 90);
    return {static_cast<double>(RoundToInt(state_.centerX + x)),
            static_cast<double>(RoundToInt(state_.centerY - y))};
}

std::array<HsiGeometry::Tick, HsiGeometry::kTicks> HsiGeometry::ticks() const {
    const int radius = cardRadius();
    const int start = turned(state_.heading + 90);
    int angle = start % 10;
    int value = start / 10 * 10 + 360;
    std::array<Tick, kTicks> all;
    for (Tick& tick : all) {
        tick.value = value % 360;
        tick.angle = angle;
        tick.labelled = tick.value % 30 == 0;
        tick.line = {at(radius, angle),
                     at(radius - (tick.labelled ? kLongTick : kShortTick), angle)};
        angle += 10;
        value -= 10;
    }
    return all;
}

std::string HsiGeometry::labelText(int value) {
    constexpr std::string_view kCorners = "NESW";
    if (value % 90 == 0)
        return std::string(kCorners.substr(static_cast<std::size_t>(value / 90), 1));
    return formatInt(value / 10);
}

Rect HsiGeometry::labelBox(const Tick& tick, double width) const {
    const double height = state_.labelHeight;
    const Point anchor = at(cardRadius() - kLongTick - height, tick.angle);
    const double left = anchor.x + (CosDeg(tick.angle) - 1) * 0.5 * width;
    const double top = anchor.y - (SinDeg(tick.angle) + 1) * 0.5 * height;
    return {static_cast<double>(RoundToInt(left)), static_cast<double>(RoundToInt(top)), width,
            height};
}

std::string HsiGeometry::headingText() const {
    return state_.heading == HsiState::kNone ? "..." : zeroPadded(state_.heading, 3);
}

HsiGeometry::ReadOut HsiGeometry::readOut(double textWidth) const {
    const double width =
        std::max(std::ceil(textWidth), 2.0 * kPointerHalfWidth - 2) + 2 * kReadOutPadding;
    const double height = state_.labelHeight + kReadOutPadding + kPointerDepth;
    const double x = state_.centerX;
    // On the rim, or as far above the card's middle as the view reaches.
    const double y = std::max<double>(state_.centerY - cardRadius(), height + 1);
    const double line = y - kPointerDepth;
    ReadOut result;
    result.box = {x - std::floor(width / 2), y - height, width, height};
    result.textCenter = {x, (result.box.y + line) / 2};
    result.pointer = {Point{x - kPointerHalfWidth, line}, Point{x - kPointerDepth, line},
                      Point{x, y}, Point{x + kPointerDepth, line},
                      Point{x + kPointerHalfWidth, line}};
    return result;
}

std::optional<std::array<Segment, 8>> HsiGeometry::bearingMark() const {
    if (state_.bearing == kNoAngle || !std::isfinite(state_.bearing))
        return std::nullopt;
    const int angle = turned(RoundToInt(state_.heading - state_.bearing) + 810);
    std::array<Segment, 8> chords;
    std::size_t next = 0;
    for (const int from : {angle - 7, angle + 1})
        for (const int out : {-4, -2, 0, 2})
            chords.at(next++) = {at(cardRadius() + out, from), at(cardRadius() + out, from + 6)};
    return chords;
}

std::optional<HsiGeometry::Needle> HsiGeometry::needle() const {
    if (state_.course == HsiState::kNone)
        return std::nullopt;
    const double room = inner();
    const double half = cardRadius() / 2.0;
    const double tip = std::max(0.0, room - kTipInset);
    const double headLength = kHeadLength * room;
    Needle needle;
    needle.angle = turned(state_.heading - state_.course + 90);
    const int angle = needle.angle;
    needle.front = {at(kNeedleFrom * room, angle), at(tip - headLength, angle)};
    needle.tail = {at(-kNeedleFrom * room, angle), at(-tip, angle)};
    needle.head = {at(tip, angle), beside(angle, tip - headLength, kHeadHalfWidth * room),
                   beside(angle, tip - headLength, -kHeadHalfWidth * room)};
    std::size_t next = 0;
    for (const int k : {-5, -4, -3, -2, -1, 1, 2, 3, 4, 5})
        needle.marks.at(next++) = beside(angle, 0, k * kMarkStep * room);
    if (state_.deviation != kNoAngle && std::isfinite(state_.deviation)) {
        const double off = std::clamp(state_.deviation, -1.0, 1.0) * 5 * kMarkStep * room;
        needle.bar = Segment{beside(angle, -kBarHalfLength * room, off),
                             beside(angle, kBarHalfLength * room, off)};
    }
    const int factor = state_.toFrom == 1 ? 1 : -1;
    needle.toFrom = {beside(angle, 15 * factor, half - 20), beside(angle, 15 * factor, half),
                     beside(angle, 25 * factor, half - 10)};
    return needle;
}

double HsiGeometry::aircraftHalfLength() const { return 0.8 * kMarkStep * inner(); }

Rect HsiGeometry::noteBox(double width, double height) const {
    const int course = state_.course == HsiState::kNone ? state_.heading : state_.course;
    const Point far = beside(turned(state_.heading - course + 90), -0.6 * inner(), -0.4 * inner());
    const Point away{far.x - state_.centerX, far.y - state_.centerY};
    // Towards the middle until the box's outer corner is inside the labels.
    const double room = std::max(0.0, inner() - kLongTick - 8.0);
    double share = 1;
    while (share > 0.5 && std::hypot(share * std::abs(away.x) + width / 2,
                                     share * std::abs(away.y) + height / 2) > room)
        share -= 0.02;
    return {state_.centerX + share * away.x - width / 2,
            state_.centerY + share * away.y - height / 2, width, height};
}

}  // namespace korvel
