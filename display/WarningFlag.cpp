#include "display/WarningFlag.h"

#include <algorithm>
#include <cmath>

#include "display/MapColorCache.h"

namespace korvel {

Rect paintWarningFlag(Canvas& canvas, Point center, std::string_view word, double textPx,
                      const MapColorCache& colors) {
    constexpr double kFrame = 3;
    const Font font{.height = textPx, .weight = FontWeight::Bold};
    const double width = std::ceil(canvas.measure(word, font).width + textPx);
    const double height = std::ceil(textPx * 1.5);
    const Rect box{std::round(center.x - width / 2), std::round(center.y - height / 2), width,
                   height};
    const ColorValue danger = colors[ColorKey::MapObstacleDanger];
    canvas.rect(box, Brush{danger}, std::nullopt);
    canvas.rect({box.x + kFrame, box.y + kFrame, width - 2 * kFrame, height - 2 * kFrame},
                Brush{colors[ColorKey::MapBackground]}, std::nullopt);
    canvas.text(
        box.center(), word,
        {.font = font, .color = danger, .alignX = AlignX::Center, .alignY = AlignY::Middle});
    return box;
}

void paintWarningCross(Canvas& canvas, const Rect& area, const MapColorCache& colors) {
    const double width = std::clamp(std::min(area.width, area.height) / 40, 3.0, 10.0);
    const Pen pen{colors[ColorKey::MapObstacleDanger], width, PenStyle::Solid};
    canvas.line({area.x, area.y}, {area.right(), area.bottom()}, pen);
    canvas.line({area.right(), area.y}, {area.x, area.bottom()}, pen);
}

}  // namespace korvel
