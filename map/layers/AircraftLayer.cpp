#include "map/layers/AircraftLayer.h"

#include <cmath>
#include <optional>
#include <vector>

#include "map/MapFrame.h"
#include "paint/Clip.h"
#include "paint/Shapes.h"

namespace korvel {
namespace {

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
