#include "pages/NextWaypoints.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "config/Text.h"
#include "config/texts/InstrumentTexts.h"
#include "geo/GeoText.h"
#include "pages/NavField.h"
#include "pages/PlanFigures.h"
#include "paint/MapColorCache.h"

namespace korvel {
namespace {

constexpr std::size_t kMost = 3;
constexpr double kRow = 1.8;           // of the type size
constexpr double kLeastWidth = 10;     // of the type size, for name and distance
constexpr double kTimeFromWidth = 14;  // the same, with the time
constexpr double kDistanceEnd = 0.68;  // of the width, where the time stands behind it
constexpr std::string_view kWidest = "WWWWW";

}  // namespace

void paintNextWaypoints(Canvas& canvas, const CockpitData& data, const Rect& room, double textPx,
                        const MapColorCache& colors) {
    const auto flown = flownRow(data);
    const double row = std::round(kRow * textPx);
    if (!flown || data.approach || room.width < kLeastWidth * textPx || room.height < 2 * row)
        return;
    const std::vector<PlanFigures> figures = planFigures(data);
    const auto fitting = static_cast<std::size_t>(room.height / row) - 1;  // below the head
    const std::size_t end = std::min(*flown + 1 + std::min(kMost, fitting), figures.size());
    if (end == *flown + 1)
        return;
    const bool timed = room.width >= kTimeFromWidth * textPx;
    const double distanceEnd = room.x + room.width * (timed ? kDistanceEnd : 1);
    TextStyle style{.font = {.height = textPx, .weight = FontWeight::Bold},
                    .color = colors[ColorKey::HsiLine],
                    .alignY = AlignY::Middle};
    const auto put = [&](double x, double y, const std::string& words, AlignX align) {
        style.alignX = align;
        canvas.text({x, y}, words, style);
    };
    double y = room.y + row / 2;
    put(room.x, y, std::string(text(kInstrumentTexts.nextWaypoints)), AlignX::Left);
    style.font.height = std::round(1.2 * textPx);
    const double names = distanceEnd - room.x - 5 * textPx;
    const double widest = canvas.textMeasure().measure(kWidest, style.font).width;
    style.font.height = std::floor(style.font.height * std::min(1.0, names / widest));
    style.color = colors[ColorKey::HsiNumeral];
    for (std::size_t i = *flown + 1; i < end; ++i) {
        y += row;
        put(room.x, y, data.plan->rows[i].ident, AlignX::Left);
        put(distanceEnd, y,
            figures[i].totalNm ? distanceText(*figures[i].totalNm, data.distanceUnit)
                               : std::string(kNoValue),
            AlignX::Right);
        if (timed)
            put(room.right(), y, arrivalText(figures[i].totalHours, data.now), AlignX::Right);
    }
}

}  // namespace korvel
