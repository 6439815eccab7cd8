#include "map/layers/PlanLayer.h"

#include <array>
#include <optional>
#include <span>

namespace korvel {
namespace {

constexpr double kFaded = 0.5;
constexpr double kNameFaded = 0.2;
constexpr double kActiveWidth = 5;
constexpr double kCoreWidth = 1.5;  // of the background inside it
constexpr double kAheadWidth = 2.5;
constexpr double kPassedWidth = 2;
constexpr double kDiamondRim = 6;
constexpr double kRim = 2;  // of the background around the active leg
static_assert(kActiveWidth + 2 * kRim <= kPlanLineReach);

/// A diamond, open so that the chart's symbol shows, but for the waypoint that is flown to.
void drawDiamond(Canvas& canvas, Point center, const Stamp& stamp) {
    const auto part = static_cast<PlanPart>(stamp.variant);
    const double r = stamp.radius;
    const std::array diamond{Point{center.x, center.y - r}, Point{center.x + r, center.y},
                             Point{center.x, center.y + r}, Point{center.x - r, center.y}};
    canvas.polygon(diamond, std::nullopt, Pen{stamp.ground, kDiamondRim, PenStyle::Solid});
    canvas.polygon(diamond,
                   part == PlanPart::Active ? std::optional(Brush{stamp.ink}) : std::nullopt,
                   Pen{stamp.ink, part == PlanPart::Passed ? 1.5 : 2.5, PenStyle::Solid});
}

class PlanPainter {
 public:
    PlanPainter(const MapContent& content, Canvas& canvas)
        : textPx_(content.view.textPx),
          canvas_(canvas),
          background_(content.colors[ColorKey::MapBackground]),
          plan_(content.colors[ColorKey::MapFlightPlan]),
          active_(content.colors[ColorKey::MapFlightPlanActive]),
          numeral_(content.colors[ColorKey::HsiNumeral]),
          faded_(blended(plan_, background_, kFaded)) {}

    void legs(std::span<const PlanLine> lines) const {
        for (const PlanLine& line : lines)
            if (line.kind != PlanLineKind::Flown)
                canvas_.polyline(line.points, penOf(line.kind));
        // Hollow: a track of the same colour, as at night, is never mistaken for it.
        for (const Pen& pen : {Pen{background_, kActiveWidth + 2 * kRim, PenStyle::Solid},
                               Pen{active_, kActiveWidth, PenStyle::Solid},
                               Pen{background_, kCoreWidth, PenStyle::Solid}})
            for (const PlanLine& line : lines)
                if (line.kind == PlanLineKind::Flown)
                    canvas_.polyline(line.points, pen);
    }

    void marks(std::span<const PlanMark> marks) const {
        for (const PlanMark& mark : marks) {
            symbol(mark);
            if (!mark.label.empty())
                label(mark);
        }
    }

 private:
    [[nodiscard]] Pen penOf(PlanLineKind kind) const {
        switch (kind) {
            case PlanLineKind::Passed:
                return {faded_, kPassedWidth, PenStyle::Dash};
            case PlanLineKind::Beyond:
                return {active_, kAheadWidth, PenStyle::Dash};
            default:
                return {plan_, kAheadWidth, PenStyle::Solid};
        }
    }

    void symbol(const PlanMark& mark) const {
        const bool isActive = mark.part == PlanPart::Active;
        const double radius = planSymbolRadius(mark.part, textPx_);
        canvas_.stamp(mark.at, {.draw = drawDiamond,
                                .ink = isActive                        ? active_
                                       : mark.part == PlanPart::Passed ? faded_
                                                                       : plan_,
                                .ground = background_,
                                .radius = radius,
                                .reach = radius + kDiamondRim,
                                .variant = static_cast<int>(mark.part)});
    }

    void label(const PlanMark& mark) const {
        TextStyle style = planLabelStyle(mark.part, textPx_);
        if (mark.part == PlanPart::Active) {
            style.color = numeral_;
            canvas_.rect(mark.labelBox, Brush{background_}, Pen{active_, 2, PenStyle::Solid});
        } else {
            // Its line may fade into the night, a name must stay readable.
            style.color =
                mark.part == PlanPart::Passed ? blended(plan_, background_, kNameFaded) : plan_;
            style.halo = background_;
        }
        canvas_.text(mark.labelAt, mark.label, style);
    }

    double textPx_;
    Canvas& canvas_;
    ColorValue background_;
    ColorValue plan_;
    ColorValue active_;
    ColorValue numeral_;
    ColorValue faded_;
};

}  // namespace

void PlanLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    const CockpitData& data = content().data;
    lines_ = tracePlan(data, view().projection, view().area);
    reservePlanLines(lines_, room.planLines);
    marks_ = layOutPlan(texts, data, view().projection, view().area, view().textPx, room.taken,
                        room.planLines);
    for (const PlanMark& mark : marks_) {
        room.named.push_back({mark.at, mark.label.substr(0, mark.label.find(' '))});
        if (content().labels != nullptr && !mark.label.empty())
            content().labels->push_back({mark.labelBox, mark.at});
    }
}

void PlanLayer::paint(Canvas& canvas) const {
    const PlanPainter painter(content(), canvas);
    painter.legs(lines_);
    painter.marks(marks_);
}

}  // namespace korvel
