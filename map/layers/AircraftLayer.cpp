#include "map/layers/AircraftLayer.h"

#include <array>
#include <cmath>

#include "geo/Geodesy.h"
#include "map/MapFrame.h"
#include "paint/Clip.h"

namespace korvel {
namespace {

// A light aircraft from above, nose up, its right half from nose to tail; the half length is 1.
constexpr std::array kRightHalf{Point{0.00, -1.00}, Point{0.08, -0.96}, Point{0.14, -0.84},
                                Point{0.16, -0.42}, Point{0.96, -0.30}, Point{1.00, -0.22},
                                Point{0.98, 0.00},  Point{0.16, 0.06},  Point{0.09, 0.62},
                                Point{0.40, 0.68},  Point{0.43, 0.74},  Point{0.41, 0.90},
                                Point{0.07, 0.92},  Point{0.00, 1.00}};

double halfLength(double textPx) { return std::round(textPx * 1.55); }

// The direction on the screen; nothing while no track is known, on a turning map as well: it then
// keeps its last angle, or lies north up, and neither is where the aircraft goes.
std::optional<double> screenAngle(const MapFrame& frame) {
    if (!frame.data.trackTrueDeg)
        return std::nullopt;
    if (frame.turns)
        return 0;
    return *frame.data.trackTrueDeg - frame.projection.angleDeg();
}

void paintLost(const MapFrame& frame, Canvas& canvas) {
    const Point at = frame.aircraft;
    const double size = halfLength(frame.textPx);
    const ColorValue background = frame.colors[ColorKey::MapBackground];
    const ColorValue danger = frame.colors[ColorKey::MapObstacleDanger];
    canvas.polygon(aircraftOutline(at, size, screenAngle(frame).value_or(0)), Brush{background},
                   Pen{frame.colors[ColorKey::HsiAirplane], 1.5, PenStyle::Solid});
    for (const Pen& pen : {Pen{background, 6, PenStyle::Solid}, Pen{danger, 3, PenStyle::Solid}})
        for (const double side : {-1.0, 1.0})
            canvas.line({at.x - size, at.y - side * size}, {at.x + size, at.y + side * size}, pen);
}

}  // namespace

Rect aircraftArea(Point center, double textPx) {
    const double half = halfLength(textPx) + 3;
    return {center.x - half, center.y - half, 2 * half, 2 * half};
}

std::vector<Point> aircraftOutline(Point center, double halfLength, double angleDeg) {
    const double sine = std::sin(angleDeg * kDegToRad) * halfLength;
    const double cosine = std::cos(angleDeg * kDegToRad) * halfLength;
    std::vector<Point> outline;
    outline.reserve(2 * kRightHalf.size());
    const auto add = [&](double x, double y) {
        outline.push_back({center.x + x * cosine - y * sine, center.y + x * sine + y * cosine});
    };
    for (const Point& point : kRightHalf)
        add(point.x, point.y);
    for (std::size_t i = kRightHalf.size() - 2; i > 0; --i)
        add(-kRightHalf.at(i).x, kRightHalf.at(i).y);
    return outline;
}

void paintAircraft(const MapFrame& frame, Canvas& canvas) {
    if (!grown(frame.view, 3 * halfLength(frame.textPx)).contains(frame.aircraft))
        return;
    if (!frame.data.position) {
        paintLost(frame, canvas);
        return;
    }
    const Point at = frame.aircraft;
    const double size = halfLength(frame.textPx);
    const Brush ink{frame.colors[ColorKey::HsiAirplane]};
    const Pen rim{frame.colors[ColorKey::MapBackground], 2, PenStyle::Solid};
    if (const std::optional<double> angle = screenAngle(frame)) {
        // The rim first and the solid over its inner half: the shape keeps its thin parts.
        const std::vector<Point> outline = aircraftOutline(at, size, *angle);
        canvas.polygon(outline, std::nullopt, Pen{rim.color, 2 * rim.width, PenStyle::Solid});
        canvas.polygon(outline, ink, std::nullopt);
        return;
    }
    canvas.circle(at, size * 0.6, std::nullopt, Pen{rim.color, 6, PenStyle::Solid});
    canvas.circle(at, size * 0.6, std::nullopt, Pen{ink.color, 3, PenStyle::Solid});
    canvas.circle(at, size * 0.22, ink, std::nullopt);
}

}  // namespace korvel
