#include "paint/RecordingCanvas.h"

#include <algorithm>
#include <array>

#include "paint/Shapes.h"
#include "paint/TextBox.h"

namespace korvel {
namespace {

Rect boundsOf(std::span<const Point> points) {
    if (points.empty())
        return {};
    const auto [left, right] = std::minmax_element(
        points.begin(), points.end(), [](Point a, Point b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(points.begin(), points.end(),
                                                   [](Point a, Point b) { return a.y < b.y; });
    return {left->x, top->y, right->x - left->x, bottom->y - top->y};
}

}  // namespace

const RecordingCanvas::Element* RecordingCanvas::findText(std::string_view text) const {
    const auto found =
        std::find_if(elements_.begin(), elements_.end(), [text](const Element& element) {
            return element.kind == Kind::Text && element.text == text;
        });
    return found == elements_.end() ? nullptr : &*found;
}

std::string RecordingCanvas::texts() const {
    std::string all;
    for (const Element& element : elements_)
        if (element.kind == Kind::Text)
            all += element.text + "\n";
    return all;
}

RecordingCanvas::Element& RecordingCanvas::add(Kind kind, std::span<const Point> points) {
    Element& element = elements_.emplace_back();
    element.kind = kind;
    element.points.assign(points.begin(), points.end());
    element.area = boundsOf(points);
    return element;
}

void RecordingCanvas::line(Point from, Point to, const Pen& pen) {
    add(Kind::Line, std::array{from, to}).pen = pen;
}

void RecordingCanvas::lines(std::span<const Segment> segments, const Pen& pen) {
    for (const Segment& segment : segments)
        line(segment.from, segment.to, pen);
}

void RecordingCanvas::polyline(std::span<const Point> points, const Pen& pen) {
    add(Kind::Polyline, points).pen = pen;
}

void RecordingCanvas::polygon(std::span<const Point> points, const std::optional<Brush>& fill,
                              const std::optional<Pen>& outline) {
    Element& element = add(Kind::Polygon, points);
    element.fill = fill;
    element.pen = outline;
}

void RecordingCanvas::rect(const Rect& area, const std::optional<Brush>& fill,
                           const std::optional<Pen>& outline) {
    Element& element = add(Kind::Rect, std::array{Point{area.x, area.y}});
    element.area = area;
    element.fill = fill;
    element.pen = outline;
}

void RecordingCanvas::circle(Point center, double radius, const std::optional<Brush>& fill,
                             const std::optional<Pen>& outline) {
    Element& element = add(Kind::Circle, std::array{center});
    element.radius = radius;
    element.area = {center.x - radius, center.y - radius, 2 * radius, 2 * radius};
    element.fill = fill;
    element.pen = outline;
}

void RecordingCanvas::text(Point anchor, std::string_view text, const TextStyle& style) {
    Element& element = add(Kind::Text, std::array{anchor});
    element.area = textBox(anchor, metrics_.measure(text, style.font), style);
    element.text = text;
    element.style = style;
}

void RecordingCanvas::bitmap(Point topLeft, const Bitmap& bitmap) {
    add(Kind::Bitmap, std::array{topLeft}).area = {topLeft.x, topLeft.y,
                                                   static_cast<double>(bitmap.width),
                                                   static_cast<double>(bitmap.height)};
}

/// Its four corners.
void RecordingCanvas::bitmapTurned(const Bitmap& bitmap, const BitmapPlace& place) {
    add(Kind::Bitmap, cornersOf(bitmap, place));
}

}  // namespace korvel
