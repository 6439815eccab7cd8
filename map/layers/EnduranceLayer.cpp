#include "map/layers/EnduranceLayer.h"

#include "cockpit/CockpitData.h"
#include "config/Text.h"
#include "config/texts/AircraftTexts.h"
#include "geo/Geodesy.h"
#include "nav/aircraft/Wind.h"
#include "paint/Clip.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr int kStepDeg = 5;
constexpr double kWidthPx = 3;
constexpr double kMostNm = 2000;  // further no map shows a circle

TextStyle labelStyle(double textPx) {
    return {.font = {.height = textPx, .weight = FontWeight::Bold},
            .alignX = AlignX::Center,
            .alignY = AlignY::Middle};
}

/// The ring's corners, around once; fewer than two where there is none.
std::vector<GeoPoint> ringOf(const CockpitData& data) {
    std::vector<GeoPoint> ring;
    if (!data.enduranceRing || !data.position || !data.aircraft || !data.fuelLeft)
        return ring;
    const double hours =
        (*data.fuelLeft - data.aircraft->reserveFuel()) / data.aircraft->burnPerHour;
    const std::optional<Wind> wind = data.wind ? std::optional(data.wind->wind) : std::nullopt;
    for (int bearing = 0; bearing <= 360; bearing += kStepDeg) {
        const auto speed = groundSpeedKt(bearing, data.aircraft->cruiseKt, wind);
        const double nm = speed.value_or(0) * hours;
        if (nm <= 0 || nm > kMostNm)
            return {};
        GeoPoint& corner = ring.emplace_back();
        PointAtRadialDistance(data.position->lat, data.position->lon, nm / kNmPerRadian,
                              bearing * kDegToRad, corner.lat, corner.lon);
    }
    return ring;
}

}  // namespace

/// The word stands at the ring's highest corner in sight.
void EnduranceLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    std::vector<Point> points;
    for (const GeoPoint& corner : ringOf(content().data))
        points.push_back(view().projection.project(corner));
    clipPolyline(points, view().area, [this](std::span<const Point> piece) {
        lines_.emplace_back(piece.begin(), piece.end());
    });
    const TextStyle style = labelStyle(view().textPx);
    const std::string words(text(kAircraftTexts.reserveRing));
    const TextExtent extent = texts.measure(words, style.font);
    const Point* best = nullptr;
    for (const Point& point : points) {
        const Rect box = textBox(point, extent, style);
        const bool isSeen = view().area.contains({box.x, box.y}) &&
                            view().area.contains({box.right(), box.bottom()});
        if (isSeen && (best == nullptr || point.y < best->y))
            best = &point;
    }
    if (best == nullptr || !room.taken.claim(grown(textBox(*best, extent, style), 3)))
        return;
    label_ = words;
    labelAt_ = *best;
}

void EnduranceLayer::paint(Canvas& canvas) const {
    const Pen pen{color(ColorKey::GeoWarning), kWidthPx, PenStyle::Dash};
    for (const std::vector<Point>& line : lines_)
        canvas.polyline(line, pen);
    if (label_.empty())
        return;
    TextStyle style = labelStyle(view().textPx);
    style.color = color(ColorKey::HsiNumeral);
    style.halo = color(ColorKey::MapBackground);
    canvas.text(labelAt_, label_, style);
}

}  // namespace korvel
