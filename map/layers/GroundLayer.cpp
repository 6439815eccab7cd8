#include "map/layers/GroundLayer.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "map/ground/AirspaceLines.h"
#include "map/ground/GroundGrid.h"
#include "map/ground/GroundPicture.h"
#include "map/ground/GroundTiles.h"
#include "paint/Clip.h"
#include "paint/ground/GroundColors.h"

namespace korvel {
namespace {

/// A polygon's edges along the view stay outside it.
constexpr double kBeyondView = 4;
/// Hides the seam between two tiles that a viewer smooths each by itself.
constexpr double kSeamWidth = 0.6;

/// Twice the area, positive for what is inside on a map whose north is up.
double signedArea(std::span<const Point> ring) {
    double sum = 0;
    Point from = ring.back();
    for (const Point to : ring) {
        sum += to.x * from.y - from.x * to.y;
        from = to;
    }
    return sum;
}

}  // namespace

void GroundLayer::paint(Canvas& canvas) const {
    GroundPicture* const ground = content().ground;
    if (ground == nullptr || view().projection.pixelsPerNm() <= 0)
        return;
    if (canvas.wantsShapes())
        return paintShapes(canvas);
    ground->prepare(view(), content().colors, canvas.pixelRatio());
    canvas.bitmapTurned(ground->bitmap(), ground->place(view()));
}

/// The same as polygons and lines, for pictures that consist of such: the largest rings first, so
/// that a lake lies on its land and an island in the lake.
void GroundLayer::paintShapes(Canvas& canvas) const {
    const GroundGrid grid(view().projection, {0, 0}, 1);
    if (!grid.isFlat())
        return;
    BaseMap& map = content().ground->map();
    const GroundParts& parts = content().ground->parts();
    const Rect area = grown(view().area, kBeyondView);
    const GroundGrid::Box box = grid.box(view().area.right(), view().area.bottom());
    std::vector<std::pair<double, std::vector<Point>>> rings;
    if (parts.land)
        forLandRings(
            map, grid, box, grid.metresPerPixel(),
            [&](std::span<const Point> ring, int) {
                if (std::vector<Point> inside = clipPolygon(ring, area); inside.size() >= 3)
                    rings.emplace_back(signedArea(ring), std::move(inside));
            });
    std::ranges::stable_sort(
        rings, [](const auto& a, const auto& b) { return std::abs(a.first) > std::abs(b.first); });
    if (parts.land)
        canvas.rect(view().area, Brush{color(ColorKey::GeoWater)}, std::nullopt);
    for (const auto& [size, ring] : rings) {
        const ColorValue fill = color(size > 0 ? ColorKey::GeoLand : ColorKey::GeoWater);
        canvas.polygon(ring, Brush{fill}, Pen{.color = fill, .width = kSeamWidth});
    }
    const auto lines = [&](SheetKind kind, ColorKey key, int most) {
        forLines(map, kind, grid, box, grid.metresPerPixel(),
                 [&](std::span<const Point> line, int lineKind) {
                     if (lineKind <= most)
                         clipPolyline(line, area, [&](std::span<const Point> piece) {
                             canvas.polyline(piece, {.color = color(key), .width = 1});
                         });
                 });
    };
    if (parts.rivers)
        lines(SheetKind::Rivers, ColorKey::GeoWater, 2);
    if (parts.borders)
        lines(SheetKind::Borders, ColorKey::GeoPoliticalBoundary, 2);
    if (const AirspaceSet* const airspaces = content().ground->airspaces();
        airspaces != nullptr && parts.airspaces)
        forAirspaces(*airspaces, grid, box, view().rangeNm, content().ground->altitudes(),
                     [&](const Airspace&, const AirspaceLook& look, std::span<const Point> line) {
                         clipPolyline(line, area, [&](std::span<const Point> piece) {
                             canvas.polyline(
                                 piece, {.color = color(look.color),
                                         .width = look.width,
                                         .style = look.dashed ? PenStyle::Dash : PenStyle::Solid});
                         });
                     });
}

}  // namespace korvel
