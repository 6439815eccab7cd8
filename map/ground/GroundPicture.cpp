#include "map/ground/GroundPicture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geo/Geodesy.h"
#include "geo/WholeDegreeTrig.h"
#include "map/ground/AirspaceLines.h"
#include "map/ground/GroundGrid.h"
#include "map/ground/GroundTiles.h"
#include "paint/ground/GroundColors.h"

namespace korvel {
namespace {

// The room around the view: 10 degrees of turn, or a tenth of the view to pan.
constexpr double kWider = 1.15;
constexpr double kHigher = 1.3;
constexpr double kAirspaceOpacity = 0.85;

/// Up to how many metres a pixel lines of a kind are drawn, and how.
struct LineLook {
    SheetKind sheet;
    int fromKind;
    int toKind;
    double toMetresPerPixel;
    double width;  ///< pixels of the canvas
    ColorKey color;
    double opacity;
};
constexpr std::array kLineLooks{
    LineLook{SheetKind::Rivers, 3, 4, 200, 0.8, ColorKey::GeoWater, 0.8},
    LineLook{SheetKind::Rivers, 2, 2, 520, 1, ColorKey::GeoWater, 0.9},
    LineLook{SheetKind::Rivers, 0, 1, 2700, 1.3, ColorKey::GeoWater, 1},
    LineLook{SheetKind::Borders, 2, 2, 2700, 0.8, ColorKey::GeoPoliticalBoundary, 0.8},
    LineLook{SheetKind::Borders, 1, 1, 1e9, 1.4, ColorKey::GeoPoliticalBoundary, 1},
};
/// Rivers may lie a kilometre off: nearer than this their lines would promise too much, and only
/// those that are as wide as a lake stay.
constexpr double kRiversFromMetresPerPixel = 30;

/// Both ends lie on one side of the raster.
bool isOutside(Point a, Point b, const Coverage& raster) {
    constexpr double kMargin = 4;
    const double right = raster.width() + kMargin;
    const double bottom = raster.height() + kMargin;
    return (a.x < -kMargin && b.x < -kMargin) || (a.y < -kMargin && b.y < -kMargin) ||
           (a.x > right && b.x > right) || (a.y > bottom && b.y > bottom);
}

Point turned(Point point, double deg) {
    const double sine = std::sin(deg * kDegToRad);
    const double cosine = std::cos(deg * kDegToRad);
    return {point.x * cosine - point.y * sine, point.y * cosine + point.x * sine};
}

}  // namespace

void GroundPicture::prepare(const MapView& view, const MapColorCache& colors, double pixelRatio) {
    Key key{.pixelsPerNm = view.projection.pixelsPerNm(),
            .wholeLatDeg = RoundToInt(view.projection.center().lat * kRadToDeg),
            .pixelRatio = pixelRatio,
            .airspaces = airspaces_ != nullptr ? airspaces_->revision() : 0,
            .colors = {}};
    for (const ColorKey each :
         {ColorKey::GeoLand, ColorKey::GeoWater, ColorKey::GeoPoliticalBoundary,
          ColorKey::MapBackground, ColorKey::MapClassB, ColorKey::MapClassC, ColorKey::MapClassD,
          ColorKey::MapClassX, ColorKey::MapSua})
        key.colors.push_back(colors[each]);
    if (key_ == key && covers(view))
        return;
    key_ = std::move(key);
    draw(view, colors);
}

BitmapPlace GroundPicture::place(const MapView& view) const {
    return {.at = view.projection.project(center_),
            .pivot = pivot_,
            .turnDeg = static_cast<double>(angleDeg_ - view.projection.angleDeg()),
            .pixelRatio = key_ ? key_->pixelRatio : 1};
}

/// Whether all four corners of the view lie on the picture.
bool GroundPicture::covers(const MapView& view) const {
    const BitmapPlace lies = place(view);
    const Rect& area = view.area;
    return std::ranges::all_of(
        std::array{Point{area.x, area.y}, Point{area.right(), area.y}, Point{area.x, area.bottom()},
                   Point{area.right(), area.bottom()}},
        [&](Point corner) {
            const Point off = turned({corner.x - lies.at.x, corner.y - lies.at.y}, -lies.turnDeg);
            const double x = lies.pivot.x + off.x * lies.pixelRatio;
            const double y = lies.pivot.y + off.y * lies.pixelRatio;
            return x >= 0 && y >= 0 && x <= width_ && y <= height_;
        });
}

void GroundPicture::draw(const MapView& view, const MapColorCache& colors) {
    ++drawn_;
    const double ratio = key_->pixelRatio;
    const Rect& area = view.area;
    // Whole canvas pixels to each side, so that the picture lies on them at first.
    const double sides = std::ceil(area.width * (kWider - 1) / 2);
    const double ends = std::ceil(area.height * (kHigher - 1) / 2);
    width_ = static_cast<int>(std::lround((area.width + 2 * sides) * ratio));
    height_ = static_cast<int>(std::lround((area.height + 2 * ends) * ratio));
    const Point corner{area.x - sides, area.y - ends};
    const GroundGrid grid(view.projection, corner, ratio);
    center_ = view.projection.center();
    angleDeg_ = view.projection.angleDeg();
    pivot_ = {(view.projection.aircraft().x - corner.x) * ratio,
              (view.projection.aircraft().y - corner.y) * ratio};
    pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    if (!grid.isFlat()) {
        std::ranges::fill(pixels_, toPixel(colors[ColorKey::MapBackground]));
        return;
    }
    if (!coverage_ || coverage_->width() != width_ || coverage_->height() != height_)
        coverage_ = std::make_unique<Coverage>(width_, height_);
    coverage_->clear();
    std::vector<FinePoint> ring;
    forLandRings(map_, grid, grid.box(width_, height_), grid.metresPerPixel(),
                 [&](std::span<const Point> points, int /*kind*/) {
                     ring.resize(points.size());
                     std::ranges::transform(points, ring.begin(),
                                            [](Point point) { return toFine(point); });
                     coverage_->ring(ring);
                 });
    ShorePalette(colors[ColorKey::GeoLand], colors[ColorKey::GeoWater]).paint(*coverage_, pixels_);
    drawLines(grid, colors);
    drawAirspaces(grid, view.rangeNm, colors);
    hideBeyondTheWorld(grid, colors[ColorKey::MapBackground]);
}

void GroundPicture::drawLines(const GroundGrid& grid, const MapColorCache& colors) {
    const GroundGrid::Box box = grid.box(width_, height_);
    const double metres = grid.metresPerPixel();
    for (const LineLook& look : kLineLooks) {
        const bool river = look.sheet == SheetKind::Rivers;
        if (metres >= look.toMetresPerPixel ||
            (river && look.toKind > 0 && look.fromKind > 0 && metres < kRiversFromMetresPerPixel))
            continue;
        coverage_->clear();
        forLines(map_, look.sheet, grid, box, metres, [&](std::span<const Point> line, int kind) {
            if (kind < look.fromKind || kind > look.toKind)
                return;
            for (std::size_t i = 1; i < line.size(); ++i)
                if (!isOutside(line[i - 1], line[i], *coverage_))
                    coverage_->band(line[i - 1], line[i], look.width * key_->pixelRatio);
        });
        paintOver(*coverage_, colors[look.color], look.opacity, pixels_);
    }
}

void GroundPicture::drawAirspaces(const GroundGrid& grid, int rangeNm,
                                  const MapColorCache& colors) {
    if (airspaces_ == nullptr || airspaces_->all().empty())
        return;
    const GroundGrid::Box box = grid.box(width_, height_);
    // What restricts lies over what informs.
    for (const ColorKey ink : {ColorKey::MapClassX, ColorKey::MapClassD, ColorKey::MapClassC,
                               ColorKey::MapClassB, ColorKey::MapSua}) {
        coverage_->clear();
        forAirspaces(*airspaces_, grid, box, rangeNm,
                     [&](const Airspace&, const AirspaceLook& look, std::span<const Point> line) {
                         if (look.color != ink)
                             return;
                         for (std::size_t i = 1; i < line.size(); ++i)
                             if (!isOutside(line[i - 1], line[i], *coverage_))
                                 coverage_->band(line[i - 1], line[i],
                                                 look.width * key_->pixelRatio);
                     });
        paintOver(*coverage_, colors[ink], kAirspaceOpacity, pixels_);
    }
}

/// Nothing lies beyond the poles, and nothing is shown twice where the view is wider than the
/// world.
void GroundPicture::hideBeyondTheWorld(const GroundGrid& grid, ColorValue background) {
    const double west = grid.centerLonDeg() - 180;
    const double east = grid.centerLonDeg() + 180;
    const GroundGrid::Box box = grid.box(width_, height_);
    if (box.south > -90 && box.north < 90 && box.west > west && box.east < east)
        return;
    coverage_->clear();
    const std::array world{toFine(grid.toRaster(west, -90)), toFine(grid.toRaster(east, -90)),
                           toFine(grid.toRaster(east, 90)), toFine(grid.toRaster(west, 90))};
    coverage_->ring(world);
    paintAround(*coverage_, background, pixels_);
}

}  // namespace korvel
