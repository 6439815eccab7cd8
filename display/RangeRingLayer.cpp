#include "display/RangeRingLayer.h"

#include <array>
#include <string>

#include "display/Clip.h"
#include "display/GeoText.h"
#include "display/MapFrame.h"
#include "display/TextBox.h"
#include "nav/WholeDegreeTrig.h"

namespace korvel {
namespace {

constexpr double kFaded = 0.45;
// Where on a ring its distance may stand, in degrees from the top: ahead and to the side first.
constexpr std::array kLabelAngles{40, -40, 60, -60, 20, -20, 90, -90, 130, -130, 180};

void paintLabel(const MapFrame& frame, Canvas& canvas, double radius, double distanceNm) {
    const std::string label = distanceText(distanceNm);
    const TextStyle style{.font = {.height = frame.textPx, .weight = FontWeight::Bold},
                          .color = frame.colors[ColorKey::MapGrid],
                          .alignX = AlignX::Center,
                          .alignY = AlignY::Middle,
                          .halo = frame.colors[ColorKey::MapBackground]};
    const Point center = frame.aircraft;
    const TextExtent extent = canvas.measure(label, style.font);
    for (const int angle : kLabelAngles) {
        const Point place{center.x + radius * SinDeg(angle), center.y - radius * CosDeg(angle)};
        const Rect box = grown(textBox(place, extent, style), 3);
        if (!frame.labels.claim(box))
            continue;
        canvas.rect(box, Brush{frame.colors[ColorKey::MapBackground]}, std::nullopt);
        canvas.text(place, label, style);
        return;
    }
}

}  // namespace

void paintRangeRings(const MapFrame& frame, Canvas& canvas) {
    const Pen pen{
        blended(frame.colors[ColorKey::MapGrid], frame.colors[ColorKey::MapBackground], kFaded), 1,
        PenStyle::Solid};
    for (const double share : {1.0, 0.5}) {
        const double distanceNm = frame.rangeNm * share;
        const double radius = distanceNm * frame.projection.pixelsPerNm();
        canvas.circle(frame.aircraft, radius, std::nullopt, pen);
        paintLabel(frame, canvas, radius, distanceNm);
    }
}

}  // namespace korvel
