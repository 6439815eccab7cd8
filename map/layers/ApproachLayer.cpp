#include "map/layers/ApproachLayer.h"

#include <array>
#include <cmath>

#include "base/TextNumbers.h"
#include "geo/GeoText.h"
#include "geo/Units.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr double kRoomInHeights = 2.2;  // of a label, from one mark to the next
constexpr double kTickInHeights = 0.6;  // to each side of the line
constexpr double kGapInHeights = 0.3;   // from a tick to its label
constexpr double kRounding = 1e-9;      // of the last unit
constexpr double kHaloPx = 2;

TextStyle labelStyle(double textPx) {
    return {.font = {.height = std::round(textPx), .weight = FontWeight::Bold},
            .alignX = AlignX::Center,
            .alignY = AlignY::Middle};
}

// How many units lie between two marks; 0: even the farthest ones crowd.
int step(double pixelsPerUnit, double textPx) {
    for (const int units : {1, 2, 5, 10})
        if (units * pixelsPerUnit >= kRoomInHeights * textPx)
            return units;
    return 0;
}

std::string labelText(const CockpitData& data, int units, double nm) {
    std::string label = formatInt(units);
    if (const auto feet = glidePathFt(data.approach->runway, nm))
        label += "  " + altitudeText(*feet, data.altUnit);
    return label;
}

/// Across the line, which is straight enough on the screen; beside it the label, without its room.
ApproachMark markAt(Point at, Point threshold, double textPx) {
    const double length = std::hypot(at.x - threshold.x, at.y - threshold.y);
    const Point across{-(at.y - threshold.y) / length * kTickInHeights * textPx,
                       (at.x - threshold.x) / length * kTickInHeights * textPx};
    return {.tick = {{at.x - across.x, at.y - across.y}, {at.x + across.x, at.y + across.y}},
            .label = {},
            .labelAt = {}};
}

/// On the side of the line where there is room first.
void placeLabel(const TextMeasure& texts, double textPx, LabelSpace& labels,
                const LabelSpace& lines, ApproachMark& mark) {
    const TextStyle style = labelStyle(textPx);
    const TextExtent extent = texts.measure(mark.label, style.font);
    const auto& [from, to] = mark.tick;
    const double tick = std::hypot(to.x - from.x, to.y - from.y);
    const double acrossX = (to.x - from.x) / tick;
    const double acrossY = (to.y - from.y) / tick;
    const double gap = kGapInHeights * textPx + std::abs(acrossX) * extent.width / 2 +
                       std::abs(acrossY) * extent.capHeight / 2;
    const std::array places{Point{to.x + gap * acrossX, to.y + gap * acrossY},
                            Point{from.x - gap * acrossX, from.y - gap * acrossY}};
    std::array<Rect, places.size()> boxes;
    for (std::size_t i = 0; i < places.size(); ++i)
        boxes[i] = textBox(places[i], extent, style);
    const auto found = claimFirst(labels, boxes, lines);
    if (!found)
        return mark.label.clear();
    mark.labelAt = places[*found];
}

}  // namespace

std::vector<ApproachMark> layOutApproach(const TextMeasure& texts, const CockpitData& data,
                                         const MapProjection& projection, const Rect& view,
                                         double textPx, LabelSpace& labels,
                                         const LabelSpace& lines) {
    std::vector<ApproachMark> marks;
    if (!data.approach)
        return marks;
    const LandingRunway& runway = data.approach->runway;
    const double unitNm = 1 / ConvertDistance(1, data.distanceUnit);
    const int units = step(unitNm * projection.pixelsPerNm(), textPx);
    const Point threshold = projection.project(runway.threshold);
    for (int unit = units; units > 0 && unit * unitNm <= kCenterLineNm + kRounding; unit += units) {
        const Point at = projection.project(onCenterLine(runway, unit * unitNm));
        if (!view.contains(at))
            continue;
        ApproachMark mark = markAt(at, threshold, textPx);
        mark.label = labelText(data, unit, unit * unitNm);
        placeLabel(texts, textPx, labels, lines, mark);
        marks.push_back(std::move(mark));
    }
    return marks;
}

void ApproachLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    marks_ = layOutApproach(texts, content().data, view().projection, view().area, view().textPx,
                            room.taken, room.planLines);
}

void ApproachLayer::paint(Canvas& canvas) const {
    const ColorValue background = color(ColorKey::MapBackground);
    const ColorValue ink = color(ColorKey::MapFlightPlanActive);
    TextStyle style = labelStyle(view().textPx);
    style.color = ink;
    style.halo = background;
    for (const ApproachMark& mark : marks_) {
        canvas.line(mark.tick.from, mark.tick.to, {background, 3 + 2 * kHaloPx, PenStyle::Solid});
        canvas.line(mark.tick.from, mark.tick.to, {ink, 3, PenStyle::Solid});
        if (!mark.label.empty())
            canvas.text(mark.labelAt, mark.label, style);
    }
}

}  // namespace korvel
