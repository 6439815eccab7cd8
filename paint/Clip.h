#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

// What lies outside the view costs as much to draw as what lies inside, and a line of a million
// pixels costs a second. So every line and polygon is cut to the view before a canvas sees it. The
// edges of `view` count as inside. What is not finite counts as outside.

/// The part of the segment inside the view (Liang-Barsky); ends inside are returned unchanged.
std::optional<Segment> clipSegment(const Segment& segment, const Rect& view);

/// Calls `piece` for each connected part of the polyline inside the view, in order. The points
/// are valid during the call only.
void clipPolyline(std::span<const Point> points, const Rect& view,
                  const std::function<void(std::span<const Point>)>& piece);

/// The closed polygon inside the view (Sutherland-Hodgman); empty when nothing is left. Parts of a
/// concave polygon stay joined along the view's edges, so fill the result but outline it through
/// clipPolyline(), or clip to a view larger than the canvas.
std::vector<Point> clipPolygon(std::span<const Point> points, const Rect& view);

/// `view` grown by `margin` pixels on all four sides.
Rect grown(const Rect& view, double margin);

}  // namespace korvel
