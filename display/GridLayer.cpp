#include "display/GridLayer.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "display/Clip.h"
#include "display/MapFrame.h"
#include "display/MapGrid.h"
#include "display/TextBox.h"

namespace korvel {
namespace {

constexpr double kFaded = 0.7;  // how much of the line is hidden by the background
constexpr double kLabelFaded = 0.3;
constexpr double kEdgeMargin = 4;
constexpr double kLabelMargin = 2;  // between a label and the line that it interrupts

// Where a line's label may stand: on the line, as close to the edge as the whole label stays
// inside; first at the left or upper end.
std::vector<Point> labelPlaces(const Segment& line, const Rect& view, const TextExtent& text) {
    const Rect room{view.x + text.width / 2 + kEdgeMargin,
                    view.y + text.capHeight / 2 + kEdgeMargin,
                    view.width - text.width - 2 * kEdgeMargin,
                    view.height - text.capHeight - text.descent - 2 * kEdgeMargin};
    const std::optional<Segment> inside = clipSegment(line, room);
    if (!inside)
        return {};
    const bool flat = std::abs(line.to.x - line.from.x) > std::abs(line.to.y - line.from.y);
    const bool fromFirst = flat ? inside->from.x < inside->to.x : inside->from.y < inside->to.y;
    return fromFirst ? std::vector{inside->from, inside->to}
                     : std::vector{inside->to, inside->from};
}

}  // namespace

void paintGrid(const MapFrame& frame, Canvas& canvas) {
    const ColorValue background = frame.colors[ColorKey::MapBackground];
    const ColorValue grid = frame.colors[ColorKey::MapGrid];
    const TextStyle style{.font = {.height = frame.textPx},
                          .color = blended(grid, background, kLabelFaded),
                          .alignX = AlignX::Center,
                          .alignY = AlignY::Middle,
                          .halo = background};
    std::vector<Segment> segments;
    std::vector<std::pair<Point, std::string>> labels;
    for (const GridLine& line : gridLines(frame.projection, frame.view)) {
        const TextExtent extent = canvas.measure(line.label, style.font);
        const std::vector<Point> places = labelPlaces(line.segment, frame.view, extent);
        const auto boxAt = [&](Point place) {
            return grown(textBox(place, extent, style), kLabelMargin);
        };
        const auto place = std::find_if(places.begin(), places.end(),
                                        [&](Point p) { return frame.labels.claim(boxAt(p)); });
        if (place == places.end()) {
            segments.push_back(line.segment);
            continue;
        }
        appendOutside(line.segment, boxAt(*place), segments);
        labels.emplace_back(*place, line.label);
    }
    canvas.lines(segments, {.color = blended(grid, background, kFaded), .width = 1});
    for (const auto& [place, label] : labels)
        canvas.text(place, label, style);
}

}  // namespace korvel
