#include "display/AreaCanvas.h"

#include <algorithm>
#include <vector>

namespace korvel {
namespace {

std::vector<Point> movedBy(const Rect& area, std::span<const Point> points) {
    std::vector<Point> result(points.begin(), points.end());
    for (Point& point : result)
        point = {point.x + area.x, point.y + area.y};
    return result;
}

}  // namespace

void AreaCanvas::line(Point from, Point to, const Pen& pen) {
    whole_.line(moved(from), moved(to), pen);
}

void AreaCanvas::lines(std::span<const Segment> segments, const Pen& pen) {
    std::vector<Segment> result(segments.begin(), segments.end());
    for (Segment& segment : result)
        segment = {moved(segment.from), moved(segment.to)};
    whole_.lines(result, pen);
}

void AreaCanvas::polyline(std::span<const Point> points, const Pen& pen) {
    whole_.polyline(movedBy(area_, points), pen);
}

void AreaCanvas::polygon(std::span<const Point> points, const std::optional<Brush>& fill,
                         const std::optional<Pen>& outline) {
    whole_.polygon(movedBy(area_, points), fill, outline);
}

void AreaCanvas::rect(const Rect& area, const std::optional<Brush>& fill,
                      const std::optional<Pen>& outline) {
    whole_.rect({area.x + area_.x, area.y + area_.y, area.width, area.height}, fill, outline);
}

void AreaCanvas::circle(Point center, double radius, const std::optional<Brush>& fill,
                        const std::optional<Pen>& outline) {
    whole_.circle(moved(center), radius, fill, outline);
}

void AreaCanvas::text(Point anchor, std::string_view text, const TextStyle& style) {
    whole_.text(moved(anchor), text, style);
}

TextExtent AreaCanvas::measure(std::string_view text, const Font& font) const {
    return whole_.measure(text, font);
}

void AreaCanvas::bitmap(Point topLeft, const Bitmap& bitmap) {
    whole_.bitmap(moved(topLeft), bitmap);
}

}  // namespace korvel
