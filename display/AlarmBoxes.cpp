#include "display/AlarmBoxes.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "display/Clip.h"
#include "display/MapColorCache.h"
#include "display/MapLook.h"

namespace korvel {
namespace {

constexpr double kFrame = 3;
/// Room for the north arrow or the range, in type sizes.
constexpr double kCornerWidth = 7;
constexpr double kCornerHeight = 4;
/// How far beside a box a finger still means it.
constexpr double kFingerPixels = 6;

double triangleSize(const Font& font) { return std::round(font.height * 0.95); }

}  // namespace

AlarmBoxes::AlarmBoxes(const Canvas& canvas, std::span<const std::string> alarms, double textPx,
                       bool onMap) {
    const Font font = alarmFont(textPx);
    const double margin = std::round(textPx * 0.55);
    const double height = std::round(font.height * 1.6);
    const std::size_t count = std::min(alarms.size(), kMostAlarmBoxes);
    for (const std::string& words : alarms.first(count)) {
        const double width = std::ceil(canvas.measure(words, font).width) + triangleSize(font) +
                             3 * font.height * 0.5;
        areas.push_back({std::round((canvas.width() - width) / 2), 0, width, height});
    }
    const double corners = 2 * kCornerWidth * textPx;
    const bool between = std::ranges::all_of(
        areas, [&](const Rect& area) { return area.width <= canvas.width() - corners; });
    const double step = height + std::round(margin / 2);
    double top = canvas.height() - static_cast<double>(count) * step;
    if (onMap)
        top = between ? margin : std::round(kCornerHeight * textPx);
    for (Rect& area : areas) {
        area.y = top;
        top += step;
    }
}

std::optional<std::size_t> AlarmBoxes::alarmAt(Point finger) const {
    for (std::size_t i = 0; i < areas.size(); ++i) {
        if (grown(areas[i], kFingerPixels).contains(finger))
            return i;
    }
    return std::nullopt;
}

void paintAlarms(Canvas& canvas, std::span<const std::string> alarms, const AlarmBoxes& boxes,
                 const MapColorCache& colors, double textPx) {
    const ColorValue danger = colors[ColorKey::MapObstacleDanger];
    const ColorValue ground = colors[ColorKey::MapBackground];
    const Font font = alarmFont(textPx);
    const double size = triangleSize(font);
    for (std::size_t i = 0; i < boxes.areas.size(); ++i) {
        const Rect& area = boxes.areas[i];
        canvas.rect(area, Brush{danger}, std::nullopt);
        canvas.rect(grown(area, -kFrame), Brush{ground}, std::nullopt);
        const double middle = area.center().y;
        const double left = area.x + font.height * 0.5;
        const std::array triangle{Point{left + size / 2, middle - size * 0.45},
                                  Point{left + size, middle + size * 0.4},
                                  Point{left, middle + size * 0.4}};
        canvas.polygon(triangle, Brush{danger}, std::nullopt);
        canvas.text({left + size / 2, middle + size * 0.1}, "!",
                    {.font = {.height = std::round(size * 0.6), .weight = FontWeight::Bold},
                     .color = ground,
                     .alignX = AlignX::Center,
                     .alignY = AlignY::Middle});
        canvas.text({left + size + font.height * 0.5, middle}, alarms[i],
                    {.font = font, .color = danger, .alignY = AlignY::Middle});
    }
}

}  // namespace korvel
