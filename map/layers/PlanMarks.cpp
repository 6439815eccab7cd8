#include "map/layers/PlanMarks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "map/MapViewport.h"
#include "navdb/records/RecordKey.h"
#include "paint/Clip.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr double kGap = 3;        // between a symbol and its label
constexpr double kActiveRim = 5;  // of the frame around the active waypoint's name

std::string labelText(std::string_view ident, const std::optional<std::int32_t>& altitudeFt,
                      int altUnit) {
    std::string label(ident);
    if (altitudeFt)
        label += (label.empty() ? "" : " ") + altitudeText(*altitudeFt, altUnit);
    return label;
}

PlanMark markAt(Point at, PlanPart part, std::string label) {
    return {.at = at, .part = part, .label = std::move(label), .labelAt = {}, .labelBox = {}};
}

std::vector<PlanMark> marksOf(const CockpitData& data, const MapProjection& projection,
                              const Rect& view) {
    std::vector<PlanMark> marks;
    const std::optional<std::size_t> flown = flownRow(data);
    if (data.activeWaypoint && !flown)
        marks.push_back(markAt(
            projection.project(*data.activeWaypoint), PlanPart::Active,
            labelText(hasKindPrefix(data.activeKey) ? identOfKey(data.activeKey) : data.activeName,
                      data.pathAltitudeFt, data.altUnit)));
    const std::size_t rows = data.plan ? data.plan->rows.size() : 0;
    for (std::size_t i = 0; i < rows; ++i) {
        const PlanRow& row = data.plan->rows[i];
        PlanPart part = planPart(*data.plan, i);
        if (part == PlanPart::Active && flown != i)
            part = PlanPart::Ahead;
        if (isBehind(part))
            part = PlanPart::Passed;  // flown or left out: neither counts on the map any more
        marks.push_back(markAt(projection.project(row.position), part,
                               labelText(row.ident, row.altitudeFt, data.altUnit)));
    }
    std::erase_if(marks, [&](const PlanMark& mark) { return !view.contains(mark.at); });
    return marks;
}

// Places the label right, left, above or below its symbol, where there is room first.
void placeLabel(const TextMeasure& texts, double textPx, LabelSpace& labels,
                const LabelSpace& lines, PlanMark& mark) {
    const TextStyle style = planLabelStyle(mark.part, textPx);
    const TextExtent extent = texts.measure(mark.label, style.font);
    const bool isActive = mark.part == PlanPart::Active;
    const double rim = isActive ? kActiveRim : 1;
    const double out = planSymbolRadius(mark.part, textPx) + kGap + rim;
    const double up = out + extent.capHeight / 2;
    const double left = -out - extent.width;
    const double middle = -extent.width / 2;
    const std::array places{Point{out, 0},  Point{left, 0},  Point{middle, -up}, Point{middle, up},
                            Point{out, up}, Point{out, -up}, Point{left, up},    Point{left, -up}};
    std::array<Rect, places.size()> boxes;
    for (std::size_t i = 0; i < places.size(); ++i)
        boxes[i] =
            grown(textBox({mark.at.x + places[i].x, mark.at.y + places[i].y}, extent, style), rim);
    const auto found = claimFirst(labels, boxes, lines);
    if (!found)
        return mark.label.clear();
    mark.labelAt = {mark.at.x + places[*found].x, mark.at.y + places[*found].y};
    mark.labelBox = boxes[*found];
}

}  // namespace

TextStyle planLabelStyle(PlanPart part, double textPx) {
    const bool isActive = part == PlanPart::Active;
    return {.font = {.height = std::round(textPx * (isActive ? 1.3 : 1.0)),
                     .weight = part == PlanPart::Passed ? FontWeight::Regular : FontWeight::Bold},
            .alignX = AlignX::Left,
            .alignY = AlignY::Middle};
}

double planSymbolRadius(PlanPart part, double textPx) {
    return std::round(textPx * (part == PlanPart::Active ? 0.62 : 0.45));
}

std::vector<PlanMark> layOutPlan(const TextMeasure& texts, const CockpitData& data,
                                 const MapProjection& projection, const Rect& view, double textPx,
                                 LabelSpace& labels, const LabelSpace& lines) {
    std::vector<PlanMark> marks = marksOf(data, projection, view);
    for (const PlanMark& mark : marks) {
        const double radius = planSymbolRadius(mark.part, textPx);
        labels.reserve({mark.at.x - radius, mark.at.y - radius, 2 * radius, 2 * radius});
    }
    for (const PlanPart part : {PlanPart::Active, PlanPart::Ahead, PlanPart::Passed})
        for (PlanMark& mark : marks)
            if (mark.part == part)
                placeLabel(texts, textPx, labels, lines, mark);
    std::stable_partition(marks.begin(), marks.end(),
                          [](const PlanMark& mark) { return mark.part != PlanPart::Active; });
    return marks;
}

}  // namespace korvel
