#include "map/layers/AircraftLayer.h"

#include <cmath>
#include <vector>

#include "cockpit/CockpitData.h"
#include "paint/Clip.h"
#include "paint/Shapes.h"

namespace korvel {
namespace {

double halfLength(double textPx) { return std::round(textPx * 1.55); }

// The direction on the screen; nothing while no track is known, on a turning map as well: it then
// keeps its last angle, or lies north up, and neither is where the aircraft goes.
std::optional<double> screenAngle(const MapContent& content) {
    if (!content.data.trackTrueDeg)
        return std::nullopt;
    if (content.turns)
        return 0;
    return *content.data.trackTrueDeg - content.view.projection.angleDeg();
}

}  // namespace

Rect aircraftArea(Point center, double textPx) {
    const double half = halfLength(textPx) + 3;
    return {center.x - half, center.y - half, 2 * half, 2 * half};
}

void AircraftLayer::layOut(const TextMeasure& /*texts*/, LabelRoom& room) {
    at_ = content().aircraft();
    size_ = halfLength(view().textPx);
    angleDeg_ = screenAngle(content());
    isSeen_ = grown(view().area, 3 * size_).contains(at_);
    room.taken.reserve(aircraftArea(at_, view().textPx));
}

void AircraftLayer::paintLost(Canvas& canvas) const {
    const ColorValue background = color(ColorKey::MapBackground);
    const ColorValue danger = color(ColorKey::MapObstacleDanger);
    canvas.polygon(aircraftOutline(at_, size_, angleDeg_.value_or(0)), Brush{background},
                   Pen{color(ColorKey::HsiAirplane), 1.5, PenStyle::Solid});
    for (const Pen& pen : {Pen{background, 6, PenStyle::Solid}, Pen{danger, 3, PenStyle::Solid}})
        for (const double side : {-1.0, 1.0})
            canvas.line({at_.x - size_, at_.y - side * size_},
                        {at_.x + size_, at_.y + side * size_}, pen);
}

void AircraftLayer::paint(Canvas& canvas) const {
    if (!isSeen_)
        return;
    if (!content().data.position) {
        paintLost(canvas);
        return;
    }
    const Brush ink{color(ColorKey::HsiAirplane)};
    const Pen rim{color(ColorKey::MapBackground), 2, PenStyle::Solid};
    if (angleDeg_) {
        // The rim first and the solid over its inner half: the shape keeps its thin parts.
        const std::vector<Point> outline = aircraftOutline(at_, size_, *angleDeg_);
        canvas.polygon(outline, std::nullopt, Pen{rim.color, 2 * rim.width, PenStyle::Solid});
        canvas.polygon(outline, ink, std::nullopt);
        return;
    }
    canvas.circle(at_, size_ * 0.6, std::nullopt, Pen{rim.color, 6, PenStyle::Solid});
    canvas.circle(at_, size_ * 0.6, std::nullopt, Pen{ink.color, 3, PenStyle::Solid});
    canvas.circle(at_, size_ * 0.22, ink, std::nullopt);
}

}  // namespace korvel
