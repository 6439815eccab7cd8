#include "map/ground/GroundPicture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geo/Geodesy.h"
#include "geo/WholeDegreeTrig.h"
#include "ground/terrain/TerrainStore.h"
#include "map/ground/GroundGrid.h"

namespace korvel {
namespace {

// The room around the view: 10 degrees of turn, or a tenth of the view to pan.
constexpr double kWider = 1.15;
constexpr double kHigher = 1.3;

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
            .parts = parts_,
            .airspaces = airspaces_ != nullptr ? airspaces_->revision() : 0,
            .altitudes = altitudes_,
            .terrain = terrain_ != nullptr ? std::optional(terrain_->revision()) : std::nullopt,
            .bandsAtFt = bandsAtFt_,
            .colors = {}};
    for (const ColorKey each :
         {ColorKey::GeoLand, ColorKey::GeoLandMax, ColorKey::GeoDanger, ColorKey::GeoWarning,
          ColorKey::GeoLabel, ColorKey::GeoWater, ColorKey::GeoPoliticalBoundary,
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

Rect GroundPicture::areaFor(const MapView& view) {
    // Whole canvas pixels to each side, so that the picture lies on them at first.
    const double sides = std::ceil(view.area.width * (kWider - 1) / 2);
    const double ends = std::ceil(view.area.height * (kHigher - 1) / 2);
    return {view.area.x - sides, view.area.y - ends, view.area.width + 2 * sides,
            view.area.height + 2 * ends};
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
            return x >= 0 && y >= 0 && x <= raster_.bitmap().width && y <= raster_.bitmap().height;
        });
}

void GroundPicture::draw(const MapView& view, const MapColorCache& colors) {
    ++drawn_;
    const double ratio = key_->pixelRatio;
    const Rect area = areaFor(view);
    const int width = static_cast<int>(std::lround(area.width * ratio));
    const int height = static_cast<int>(std::lround(area.height * ratio));
    const Point corner{area.x, area.y};
    const GroundGrid grid(view.projection, corner, ratio);
    center_ = view.projection.center();
    angleDeg_ = view.projection.angleDeg();
    pivot_ = {(view.projection.aircraft().x - corner.x) * ratio,
              (view.projection.aircraft().y - corner.y) * ratio};
    raster_.draw(width, height, grid,
                 {.parts = parts_,
                  .airspaces = airspaces_,
                  .altitudes = altitudes_,
                  .terrain = terrain_,
                  .bandsAtFt = bandsAtFt_,
                  .rangeNm = view.rangeNm,
                  .pixelRatio = ratio},
                 colors);
}

}  // namespace korvel
