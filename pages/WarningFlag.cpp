#include "pages/WarningFlag.h"

#include <algorithm>
#include <cmath>

#include "paint/MapColorCache.h"

namespace korvel {
namespace {

Font flagFont(double textPx) { return {.height = textPx, .weight = FontWeight::Bold}; }

}  // namespace

Rect warningFlagBox(const TextMeasure& texts, Point center, std::string_view word, double textPx) {
    const double width = std::ceil(texts.measure(word, flagFont(textPx)).width + textPx);
    const double height = std::ceil(textPx * 1.5);
    return {std::round(center.x - width / 2), std::round(center.y - height / 2), width, height};
}

void paintWarningFlag(Canvas& canvas, Point center, std::string_view word, double textPx,
                      const MapColorCache& colors) {
    constexpr double kFrame = 3;
    const Rect box = warningFlagBox(canvas.textMeasure(), center, word, textPx);
    const ColorValue danger = colors[ColorKey::MapObstacleDanger];
    canvas.rect(box, Brush{danger}, std::nullopt);
    canvas.rect({box.x + kFrame, box.y + kFrame, box.width - 2 * kFrame, box.height - 2 * kFrame},
                Brush{colors[ColorKey::MapBackground]}, std::nullopt);
    canvas.text(box.center(), word,
                {.font = flagFont(textPx),
                 .color = danger,
                 .alignX = AlignX::Center,
                 .alignY = AlignY::Middle});
}

void paintWarningCross(Canvas& canvas, const Rect& area, const MapColorCache& colors) {
    const double width = std::clamp(std::min(area.width, area.height) / 40, 3.0, 10.0);
    const Pen pen{colors[ColorKey::MapObstacleDanger], width, PenStyle::Solid};
    canvas.line({area.x, area.y}, {area.right(), area.bottom()}, pen);
    canvas.line({area.right(), area.y}, {area.x, area.bottom()}, pen);
}

}  // namespace korvel
