#include "pages/EfisTape.h"

#include <cmath>

#include "base/TextNumbers.h"
#include "pages/HsiGeometry.h"
#include "pages/WarningFlag.h"
#include "paint/MapColorCache.h"

namespace korvel {
namespace {

constexpr double kGroundOpacity = 0.55;

class TapePainter {
 public:
    TapePainter(Canvas& canvas, const EfisTape& tape, double textPx, const MapColorCache& colors)
        : canvas_(canvas), tape_(tape), textPx_(textPx), colors_(colors) {}

    void ground() {
        canvas_.rect(tape_.area, Brush{colors_[ColorKey::MapBackground], kGroundOpacity},
                     std::nullopt);
    }

    void scale() {
        std::vector<Segment> ticks;
        const Rect& area = tape_.area;
        const bool lying = tape_.kind == EfisTape::Kind::Heading;
        const double room = (lying ? area.width : area.height) / 2;
        for (const EfisTape::Mark& mark : tape_.marks()) {
            const double length = textPx_ * (mark.labelled ? 0.7 : 0.4);
            if (lying)
                ticks.push_back({{area.center().x + mark.offset, area.y},
                                 {area.center().x + mark.offset, area.y + length}});
            else
                ticks.push_back(upright(mark.offset, length));
            // Neither cut off at the ends nor half behind the read-out.
            const double hidden = textPx_ * (lying ? 2.9 : 1.5);
            if (mark.labelled && std::abs(mark.offset) < room - textPx_ &&
                std::abs(mark.offset) > hidden)
                label(mark);
        }
        canvas_.lines(ticks, {colors_[ColorKey::HsiNumeral], 2, PenStyle::Solid});
    }

    void readOut() {
        const Rect& area = tape_.area;
        const double height = std::round(textPx_ * 2.1);
        Rect box{area.x, std::round(area.center().y - height / 2), area.width, height};
        if (tape_.kind == EfisTape::Kind::Heading) {
            const double width = std::round(textPx_ * 4);
            box = {std::round(area.center().x - width / 2), area.y, width, area.height};
        }
        canvas_.rect(box, Brush{colors_[ColorKey::NavBackground]},
                     Pen{colors_[ColorKey::NavBorder], 2, PenStyle::Solid});
        TextStyle style = centered(ColorKey::NavText);
        style.font = {.height = std::round(textPx_ * 1.7), .weight = FontWeight::Bold};
        const double width = canvas_.textMeasure().measure(tape_.readOut, style.font).width;
        if (width > box.width - 6)
            style.font.height = std::floor(style.font.height * (box.width - 6) / width);
        canvas_.text(box.center(), tape_.readOut, style);
    }

 private:
    TextStyle centered(ColorKey color) const {
        return {.font = {.height = std::round(textPx_ * 1.1), .weight = FontWeight::Bold},
                .color = colors_[color],
                .alignX = AlignX::Center,
                .alignY = AlignY::Middle};
    }

    // The ticks stand at the tape's inner edge.
    Segment upright(double offset, double length) const {
        const Rect& area = tape_.area;
        const double y = area.center().y - offset;
        if (tape_.kind == EfisTape::Kind::Left)
            return {{area.right() - length, y}, {area.right(), y}};
        return {{area.x, y}, {area.x + length, y}};
    }

    void label(const EfisTape::Mark& mark) {
        const Rect& area = tape_.area;
        TextStyle style = centered(ColorKey::HsiNumeral);
        if (tape_.kind == EfisTape::Kind::Heading) {
            canvas_.text({area.center().x + mark.offset, area.y + 1.4 * textPx_},
                         HsiGeometry::labelText(mark.value), style);
            return;
        }
        const bool left = tape_.kind == EfisTape::Kind::Left;
        style.alignX = left ? AlignX::Right : AlignX::Left;
        const double x = left ? area.right() - 0.95 * textPx_ : area.x + 0.95 * textPx_;
        canvas_.text({x, area.center().y - mark.offset}, formatInt(mark.value), style);
    }

    Canvas& canvas_;
    const EfisTape& tape_;
    double textPx_;
    const MapColorCache& colors_;
};

}  // namespace

std::vector<EfisTape::Mark> EfisTape::marks() const {
    const bool lying = kind == Kind::Heading;
    const double pixelsPerUnit = (lying ? area.width : area.height) / visible;
    std::vector<Mark> all;
    if (!value || !std::isfinite(*value) || std::abs(*value) > 1e6)
        return all;
    const int first = static_cast<int>(std::ceil((*value - visible / 2) / markStep)) * markStep;
    for (int at = first; at <= *value + visible / 2; at += markStep)
        if (!fromZero || at >= 0)
            all.push_back({(at - *value) * pixelsPerUnit, lying ? (at % 360 + 360) % 360 : at,
                           at % labelStep == 0});
    return all;
}

void paintEfisTape(Canvas& canvas, const EfisTape& tape, std::string_view flag, double textPx,
                   const MapColorCache& colors) {
    TapePainter painter(canvas, tape, textPx, colors);
    painter.ground();
    if (!tape.value) {
        paintWarningCross(canvas, tape.area, colors);
        paintWarningFlag(canvas, tape.area.center(), flag, textPx, colors);
        return;
    }
    painter.scale();
    painter.readOut();
}

}  // namespace korvel
