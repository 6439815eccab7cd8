#include "pages/MessageBox.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "paint/MapColorCache.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

std::vector<std::string_view> linesOf(std::string_view words) {
    std::vector<std::string_view> lines;
    for (;;) {
        const std::size_t end = words.find('\n');
        lines.push_back(words.substr(0, end));
        if (end == std::string_view::npos)
            return lines;
        words.remove_prefix(end + 1);
    }
}

}  // namespace

void paintMessageBox(Canvas& canvas, std::string_view words, const MapColorCache& colors,
                     double bandHeight) {
    const std::vector<std::string_view> lines = linesOf(words);
    Font font = infoFont(mapTextPx(canvas.width(), canvas.height()));
    const auto widest = [&] {
        double width = 0;
        for (const std::string_view line : lines)
            width = std::max(width, canvas.textMeasure().measure(line, font).width);
        return width;
    };
    const double room = canvas.width() - 4 * boxMargin(font);
    font.height *= std::min(1.0, room / std::max(widest(), 1.0));
    const double margin = boxMargin(font);
    const double step = lineHeight(font);
    const double width = std::ceil(widest()) + 2 * margin;
    const double height = boxHeight(font) + step * static_cast<double>(lines.size() - 1);
    const double bandTop = canvas.height() - std::max(bandHeight, height);
    const Rect box = bandHeight > 0 ? Rect{0, bandTop, canvas.width(), canvas.height() - bandTop}
                                    : Rect{std::round((canvas.width() - width) / 2),
                                           canvas.height() - margin - height, width, height};
    canvas.rect(box, Brush{colors[ColorKey::MapInfoBackground]}, std::nullopt);
    double y = box.center().y - step * static_cast<double>(lines.size() - 1) / 2;
    for (const std::string_view line : lines) {
        canvas.text({box.center().x, y}, line,
                    {.font = font,
                     .color = colors[ColorKey::MapInfoText],
                     .alignX = AlignX::Center,
                     .alignY = AlignY::Middle});
        y += step;
    }
}

}  // namespace korvel
