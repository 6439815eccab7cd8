#include "paint/Clip.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace korvel {
namespace {

bool isFinite(Point point) { return std::isfinite(point.x) && std::isfinite(point.y); }

// The part of a segment inside a view, as fractions of its length.
struct Span {
    double from = 0;
    double to = 1;
};

// Cuts the span at one edge: `step` is how far the segment runs across that edge, outwards when
// positive, and `room` how far inside the edge it starts. False when nothing is left.
bool cut(double step, double room, Span& span) {
    if (step == 0)
        return room >= 0;
    const double at = room / step;
    if (step > 0)
        span.to = std::min(span.to, at);
    else
        span.from = std::max(span.from, at);
    return span.from <= span.to;
}

Point along(const Segment& segment, double fraction) {
    return {segment.from.x + (segment.to.x - segment.from.x) * fraction,
            segment.from.y + (segment.to.y - segment.from.y) * fraction};
}

// One of the four half planes that make up a view: `sign` times the coordinate may not exceed
// sign times `limit`.
struct Edge {
    double Point::*coordinate;
    double limit;
    double sign;

    double room(Point point) const { return sign * (limit - point.*coordinate); }
    Point crossing(Point from, Point to) const {
        const double inside = room(from);
        Point point = along({from, to}, inside / (inside - room(to)));
        point.*coordinate = limit;
        return point;
    }
};

std::vector<Point> cutAt(const Edge& edge, std::span<const Point> points) {
    std::vector<Point> kept;
    kept.reserve(points.size() + 2);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point from = points[i];
        const Point to = points[i + 1 == points.size() ? 0 : i + 1];
        const bool fromInside = edge.room(from) >= 0;
        if (fromInside)
            kept.push_back(from);
        if (fromInside != (edge.room(to) >= 0))
            kept.push_back(edge.crossing(from, to));
    }
    return kept;
}

}  // namespace

std::optional<Segment> clipSegment(const Segment& segment, const Rect& view) {
    const double dx = segment.to.x - segment.from.x;
    const double dy = segment.to.y - segment.from.y;
    if (!isFinite(segment.from) || !isFinite({dx, dy}))
        return std::nullopt;
    Span span;
    if (!cut(-dx, segment.from.x - view.x, span) || !cut(dx, view.right() - segment.from.x, span) ||
        !cut(-dy, segment.from.y - view.y, span) || !cut(dy, view.bottom() - segment.from.y, span))
        return std::nullopt;
    return Segment{span.from > 0 ? along(segment, span.from) : segment.from,
                   span.to < 1 ? along(segment, span.to) : segment.to};
}

void clipPolyline(std::span<const Point> points, const Rect& view,
                  const std::function<void(std::span<const Point>)>& piece) {
    std::vector<Point> run;
    const auto finish = [&] {
        if (run.size() > 1)
            piece(run);
        run.clear();
    };
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const std::optional<Segment> inside = clipSegment({points[i], points[i + 1]}, view);
        if (!inside) {
            finish();
            continue;
        }
        if (run.empty())
            run.push_back(inside->from);
        run.push_back(inside->to);
        if (inside->to != points[i + 1])
            finish();
    }
    finish();
}

std::vector<Point> clipPolygon(std::span<const Point> points, const Rect& view) {
    if (!std::all_of(points.begin(), points.end(), isFinite))
        return {};
    std::vector<Point> result(points.begin(), points.end());
    for (const Edge& edge : {Edge{&Point::x, view.x, -1}, Edge{&Point::x, view.right(), 1},
                             Edge{&Point::y, view.y, -1}, Edge{&Point::y, view.bottom(), 1}})
        result = cutAt(edge, result);
    if (result.size() < 3)
        result.clear();
    return result;
}

Rect grown(const Rect& view, double margin) {
    return {view.x - margin, view.y - margin, view.width + 2 * margin, view.height + 2 * margin};
}

}  // namespace korvel
