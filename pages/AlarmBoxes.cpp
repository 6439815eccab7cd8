#include "pages/AlarmBoxes.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "paint/Clip.h"
#include "paint/MapColorCache.h"
#include "paint/TypeSizes.h"

namespace korvel {
namespace {

constexpr double kFrame = 3;
/// Room for the north arrow or the range, in type sizes.
constexpr double kCornerWidth = 7;
constexpr double kCornerHeight = 4;
/// How far beside a box a finger still means it.
constexpr double kFingerPixels = 6;

double triangleSize(const Font& font) { return std::round(font.height * 0.95); }

/// One below the other.
void stack(std::vector<Rect>& areas, double top, double gap) {
    for (Rect& area : areas) {
        area.y = top;
        top = area.bottom() + gap;
    }
}

/// Side by side in as few rows as hold them, each in the middle; how high all of them are.
double fillRows(std::vector<Rect>& areas, double width, double gap) {
    double top = gap;
    for (auto first = areas.begin(); first != areas.end();) {
        double used = first->width;
        auto end = first + 1;
        for (; end != areas.end() && used + gap + end->width <= width - 2 * gap; ++end)
            used += gap + end->width;
        double left = std::round((width - used) / 2);
        const double height = first->height;
        for (; first != end; ++first) {
            first->x = left;
            first->y = top;
            left = first->right() + gap;
        }
        top += height + gap;
    }
    return top;
}

}  // namespace

AlarmBoxes::AlarmBoxes(const TextMeasure& texts, const Rect& page,
                       std::span<const std::string> alarms, double textPx, Place place)
    : font(alarmFont(textPx)) {
    if (alarms.empty())
        return;
    const double margin = std::round(textPx * 0.55);
    const double height = std::round(font.height * 1.6);
    const auto shown = alarms.first(std::min(alarms.size(), kMostAlarmBoxes));
    words.assign(shown.begin(), shown.end());
    for (const std::string& alarm : words) {
        const double width = std::ceil(texts.measure(alarm, font).width) + triangleSize(font) +
                             3 * font.height * 0.5;
        areas.push_back({std::round((page.width - width) / 2), 0, width, height});
    }
    const double gap = std::round(margin / 2);
    if (place == Place::Strip) {
        stripHeight = fillRows(areas, page.width, gap);
        for (Rect& area : areas)
            area.y += page.height - stripHeight;
        return;
    }
    const double corners = 2 * kCornerWidth * textPx;
    const bool between = std::ranges::all_of(
        areas, [&](const Rect& area) { return area.width <= page.width - corners; });
    stack(areas, between ? margin : std::round(kCornerHeight * textPx), gap);
}

std::optional<std::size_t> AlarmBoxes::alarmAt(Point finger) const {
    for (std::size_t i = 0; i < areas.size(); ++i)
        if (grown(areas[i], kFingerPixels).contains(finger))
            return i;
    return std::nullopt;
}

void paintAlarms(Canvas& canvas, const AlarmBoxes& boxes, const MapColorCache& colors) {
    const ColorValue danger = colors[ColorKey::MapObstacleDanger];
    const ColorValue ground = colors[ColorKey::MapBackground];
    const Font& font = boxes.font;
    if (boxes.stripHeight > 0)
        canvas.rect({0, canvas.height() - boxes.stripHeight, canvas.width(), boxes.stripHeight},
                    Brush{ground}, std::nullopt);
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
        canvas.text({left + size + font.height * 0.5, middle}, boxes.words[i],
                    {.font = font, .color = danger, .alignY = AlignY::Middle});
    }
}

}  // namespace korvel
