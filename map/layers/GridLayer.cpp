#include "map/layers/GridLayer.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "paint/Clip.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

constexpr double kFaded = 0.7;  // how much of the line is hidden by the background
constexpr double kLabelFaded = 0.3;
constexpr double kEdgeMargin = 4;
constexpr double kLabelMargin = 2;  // between a label and the line that it interrupts

// Where a line's label may stand: on the line, as close to the edge as the whole label stays
// inside, or a little further in; first at the left or upper end.
std::vector<Point> labelPlaces(const Segment& line, const Rect& view, const TextExtent& text) {
    const Rect room{view.x + text.width / 2 + kEdgeMargin,
                    view.y + text.capHeight / 2 + kEdgeMargin,
                    view.width - text.width - 2 * kEdgeMargin,
                    view.height - text.capHeight - text.descent - 2 * kEdgeMargin};
    std::optional<Segment> inside = clipSegment(line, room);
    if (!inside)
        return {};
    const bool flat = std::abs(line.to.x - line.from.x) > std::abs(line.to.y - line.from.y);
    if (flat ? inside->from.x > inside->to.x : inside->from.y > inside->to.y)
        std::swap(inside->from, inside->to);
    std::vector<Point> places;
    for (const double share : {0.0, 1.0, 0.08, 0.92, 0.16, 0.84})
        places.push_back({inside->from.x + (inside->to.x - inside->from.x) * share,
                          inside->from.y + (inside->to.y - inside->from.y) * share});
    return places;
}

}  // namespace

TextStyle GridLayer::style() const {
    const ColorValue background = color(ColorKey::MapBackground);
    return {.font = {.height = view().textPx},
            .color = blended(color(ColorKey::MapGrid), background, kLabelFaded),
            .alignX = AlignX::Center,
            .alignY = AlignY::Middle,
            .halo = background};
}

void GridLayer::layOut(const TextMeasure& texts, LabelRoom& room) {
    lines_ = gridLines(view().projection, view().area);
    const TextStyle look = style();
    for (const GridLine& line : lines_) {
        const TextExtent extent = texts.measure(line.label, look.font);
        const std::vector<Point> places = labelPlaces(line.segment, view().area, extent);
        std::vector<Rect> boxes(places.size());
        std::ranges::transform(places, boxes.begin(), [&](Point place) {
            return grown(textBox(place, extent, look), kLabelMargin);
        });
        if (const auto found = claimFirst(room.taken, boxes, room.planLines))
            labels_.push_back({line.label, places[*found], boxes[*found]});
    }
}

void GridLayer::paint(Canvas& canvas) const {
    std::vector<Segment> segments;
    segments.reserve(lines_.size());
    for (const GridLine& line : lines_)
        segments.push_back(line.segment);
    canvas.lines(segments, {.color = blended(color(ColorKey::MapGrid),
                                             color(ColorKey::MapBackground), kFaded),
                            .width = 1});
}

void GridLayer::paintWords(Canvas& canvas) const {
    const TextStyle look = style();
    for (const Label& label : labels_) {
        // The line stops on both sides of it.
        if (content().ground == nullptr)  // a box on land or water would be a hole in it
            canvas.rect(label.box, Brush{color(ColorKey::MapBackground)}, std::nullopt);
        canvas.text(label.at, label.text, look);
    }
}

}  // namespace korvel
