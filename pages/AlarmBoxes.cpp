#include "pages/AlarmBoxes.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "pages/ToneLook.h"
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

bool hasTriangle(const ShownAlarm& alarm) { return alarm.urgency != AlarmUrgency::Notice; }

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

void paintTriangle(Canvas& canvas, Point leftMiddle, double size, const ToneLook& look) {
    const auto [left, middle] = leftMiddle;
    const std::array triangle{Point{left + size / 2, middle - size * 0.45},
                              Point{left + size, middle + size * 0.4},
                              Point{left, middle + size * 0.4}};
    canvas.polygon(triangle, Brush{look.frame}, std::nullopt);
    canvas.text({left + size / 2, middle + size * 0.1}, "!",
                {.font = {.height = std::round(size * 0.6), .weight = FontWeight::Bold},
                 .color = look.ground,
                 .alignX = AlignX::Center,
                 .alignY = AlignY::Middle});
}

void paintAlarm(Canvas& canvas, const Rect& area, const ShownAlarm& alarm, const Font& font,
                const MapColorCache& colors) {
    const ToneLook look = toneLook(alarm.urgency, colors);
    canvas.rect(area, Brush{look.frame}, std::nullopt);
    canvas.rect(grown(area, -kFrame), Brush{look.ground}, std::nullopt);
    const double middle = area.center().y;
    double left = area.x + font.height * 0.5;
    if (hasTriangle(alarm)) {
        paintTriangle(canvas, {left, middle}, triangleSize(font), look);
        left += triangleSize(font) + font.height * 0.5;
    }
    canvas.text({left, middle}, alarm.words,
                {.font = font, .color = look.ink, .alignY = AlignY::Middle});
}

}  // namespace

AlarmBoxes::AlarmBoxes(const TextMeasure& texts, const Rect& page, std::span<const ShownAlarm> all,
                       double textPx, Place place)
    : font(alarmFont(textPx)) {
    if (all.empty())
        return;
    const double margin = std::round(textPx * 0.55);
    const double height = std::round(font.height * 1.6);
    const auto shown = all.first(std::min(all.size(), kMostAlarmBoxes));
    alarms.assign(shown.begin(), shown.end());
    for (const ShownAlarm& alarm : alarms) {
        const double triangle = hasTriangle(alarm) ? triangleSize(font) + font.height * 0.5 : 0;
        const double width =
            std::ceil(texts.measure(alarm.words, font).width) + triangle + 2 * font.height * 0.5;
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
    if (boxes.stripHeight > 0)
        canvas.rect({0, canvas.height() - boxes.stripHeight, canvas.width(), boxes.stripHeight},
                    Brush{colors[ColorKey::MapBackground]}, std::nullopt);
    for (std::size_t i = 0; i < boxes.areas.size(); ++i)
        paintAlarm(canvas, boxes.areas[i], boxes.alarms[i], boxes.font, colors);
}

}  // namespace korvel
