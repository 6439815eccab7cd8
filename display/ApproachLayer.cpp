#include "display/ApproachLayer.h"

#include <array>
#include <cmath>

#include "display/GeoText.h"
#include "display/MapFrame.h"
#include "display/TextBox.h"
#include "nav/TextNumbers.h"
#include "nav/Units.h"

namespace korvel {
namespace {

constexpr double kRoomInHeights = 2.2;  // of a label, from one mark to the next
constexpr double kTickInHeights = 0.6;
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

}  // namespace

std::vector<ApproachMark> layOutApproach(const Canvas& canvas, const CockpitData& data,
                                         const MapProjection& projection, const Rect& view,
                                         double textPx, LabelSpace& labels) {
    std::vector<ApproachMark> marks;
    if (!data.approach)
        return marks;
    const LandingRunway& runway = data.approach->runway;
    const double unitNm = 1 / ConvertDistance(1);
    const int units = step(unitNm * projection.pixelsPerNm(), textPx);
    const Point threshold = projection.project(runway.threshold);
    const TextStyle style = labelStyle(textPx);
    for (int unit = units; units > 0 && unit * unitNm <= kCenterLineNm + 1e-9; unit += units) {
        const Point at = projection.project(onCenterLine(runway, unit * unitNm));
        if (!view.contains(at))
            continue;
        // Across the line, which is straight enough on the screen.
        const double length = std::hypot(at.x - threshold.x, at.y - threshold.y);
        const double acrossX = -(at.y - threshold.y) / length;
        const double acrossY = (at.x - threshold.x) / length;
        const double half = kTickInHeights * textPx;
        ApproachMark mark{.tick = {{at.x - half * acrossX, at.y - half * acrossY},
                                   {at.x + half * acrossX, at.y + half * acrossY}},
                          .label = labelText(data, unit, unit * unitNm),
                          .labelAt = {}};
        const TextExtent extent = canvas.measure(mark.label, style.font);
        const double away = 1.5 * half + std::abs(acrossX) * extent.width / 2 +
                            std::abs(acrossY) * extent.capHeight;
        bool placed = false;
        for (const double side : {1.0, -1.0}) {
            mark.labelAt = {at.x + side * away * acrossX, at.y + side * away * acrossY};
            placed = placed || labels.claim(textBox(mark.labelAt, extent, style));
            if (placed)
                break;
        }
        if (!placed)
            mark.label.clear();
        marks.push_back(std::move(mark));
    }
    return marks;
}

void paintApproach(const MapFrame& frame, Canvas& canvas) {
    const ColorValue background = frame.colors[ColorKey::MapBackground];
    const ColorValue ink = frame.colors[ColorKey::MapFlightPlanActive];
    TextStyle style = labelStyle(frame.textPx);
    style.color = ink;
    style.halo = background;
    for (const ApproachMark& mark : frame.approachMarks) {
        canvas.line(mark.tick.from, mark.tick.to, {background, 3 + 2 * kHaloPx, PenStyle::Solid});
        canvas.line(mark.tick.from, mark.tick.to, {ink, 3, PenStyle::Solid});
        if (!mark.label.empty())
            canvas.text(mark.labelAt, mark.label, style);
    }
}

}  // namespace korvel
