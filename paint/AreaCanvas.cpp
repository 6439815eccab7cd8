#include "paint/AreaCanvas.h"

#include <algorithm>
#include <vector>

namespace korvel {
std::vector<Point> AreaCanvas::moved(std::span<const Point> points) const {
    std::vector<Point> result(points.begin(), points.end());
    for (Point& point : result)
        point = moved(point);
    return result;
}

std::optional<Pen> AreaCanvas::scaled(const std::optional<Pen>& pen) const {
    return pen ? std::optional(scaled(*pen)) : std::nullopt;
}

void AreaCanvas::line(Point from, Point to, const Pen& pen) {
    whole_.line(moved(from), moved(to), scaled(pen));
}

void AreaCanvas::lines(std::span<const Segment> segments, const Pen& pen) {
    std::vector<Segment> result(segments.begin(), segments.end());
    for (Segment& segment : result)
        segment = {moved(segment.from), moved(segment.to)};
    whole_.lines(result, scaled(pen));
}

void AreaCanvas::polyline(std::span<const Point> points, const Pen& pen) {
    whole_.polyline(moved(points), scaled(pen));
}

void AreaCanvas::polygon(std::span<const Point> points, const std::optional<Brush>& fill,
                         const std::optional<Pen>& outline) {
    whole_.polygon(moved(points), fill, scaled(outline));
}

void AreaCanvas::rect(const Rect& area, const std::optional<Brush>& fill,
                      const std::optional<Pen>& outline) {
    const Point corner = moved({area.x, area.y});
    whole_.rect({corner.x, corner.y, area.width * scale_, area.height * scale_}, fill,
                scaled(outline));
}

void AreaCanvas::circle(Point center, double radius, const std::optional<Brush>& fill,
                        const std::optional<Pen>& outline) {
    whole_.circle(moved(center), radius * scale_, fill, scaled(outline));
}

void AreaCanvas::text(Point anchor, std::string_view text, const TextStyle& style) {
    TextStyle own = style;
    own.font = texts_.scaled(style.font);
    whole_.text(moved(anchor), text, own);
}

TextExtent ScaledTextMeasure::measure(std::string_view text, const Font& font) const {
    const TextExtent extent = whole_.measure(text, scaled(font));
    return {extent.width / scale_, extent.capHeight / scale_, extent.descent / scale_};
}

void AreaCanvas::bitmapTurned(const Bitmap& bitmap, const BitmapPlace& place) {
    BitmapPlace own = place;
    own.at = moved(place.at);
    own.pixelRatio = place.pixelRatio / scale_;
    whole_.bitmapTurned(bitmap, own);
}

void AreaCanvas::bitmap(Point topLeft, const Bitmap& bitmap) {
    whole_.bitmap(moved(topLeft), bitmap);
}

}  // namespace korvel
