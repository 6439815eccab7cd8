#include "map/ground/GroundRaster.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geo/Units.h"
#include "ground/terrain/HeightPyramid.h"
#include "map/ground/AirspaceLines.h"
#include "map/ground/GroundTiles.h"
#include "map/ground/ReliefPatch.h"
#include "map/ground/TerrainField.h"
#include "paint/ground/GroundColors.h"

namespace korvel {
namespace {

constexpr double kAirspaceOpacity = 0.85;
constexpr int kReliefStep = 4;  ///< pixels between the heights that are looked up
constexpr int kTerrainStep = 2;
constexpr double kReliefSteepness = 10;  ///< its cells are nine kilometres wide
constexpr double kTerrainSteepness = 1.8;

constexpr std::uint32_t kBandShare = 190;  ///< 256ths: slopes are still to be seen
constexpr std::uint32_t kBandShareDark = 140;
// Ground that nobody knows.
constexpr double kHatchApart = 10;
constexpr double kHatchWide = 2;
constexpr double kHatch = 0.55;         ///< of the labels' colour in the stripes
constexpr double kUnknownGround = 0.2;  ///< and between them

ColorValue unknownInk(const MapColorCache& colors, double share) {
    return blended(colors[ColorKey::MapBackground], colors[ColorKey::GeoLabel], share);
}

/// Colours land by how near the altitude it comes.
class BandColors {
 public:
    BandColors(std::optional<double> altitudeFt, const MapColorCache& colors)
        : dangerM_((altitudeFt.value_or(0) - kDangerBelowFt) / kFeetPerMetre),
          warningM_((altitudeFt.value_or(0) - kWarningBelowFt) / kFeetPerMetre),
          danger_(toPixel(colors[ColorKey::GeoDanger])),
          warning_(toPixel(colors[ColorKey::GeoWarning])),
          unknown_(toPixel(unknownInk(colors, kUnknownGround))),
          share_(isDarkLand(colors[ColorKey::GeoLand]) ? kBandShareDark : kBandShare) {}

    /// `highest` is what is known of the ground there in metres, even where most of it is not.
    [[nodiscard]] std::uint32_t over(std::uint32_t land, float highest, bool measured) const {
        if (highest > dangerM_ && highest > HeightPyramid::kUnknown)
            return mixedPixel(land, danger_, share_);
        if (highest > warningM_ && highest > HeightPyramid::kUnknown)
            return mixedPixel(land, warning_, share_);
        return measured ? land : unknown_;
    }

 private:
    double dangerM_;
    double warningM_;
    std::uint32_t danger_;
    std::uint32_t warning_;
    std::uint32_t unknown_;
    std::uint32_t share_;
};

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

/// Coarse heights have no slopes worth seeing close by.
struct ShadingRow {
    int fromRangeNm;
    double shading;
};
constexpr std::array kReliefShading{ShadingRow{250, 1}, ShadingRow{100, 0.75}, ShadingRow{65, 0.5},
                                    ShadingRow{0, 0}};

double reliefShading(int rangeNm) {
    return std::ranges::find_if(
               kReliefShading,
               [rangeNm](const ShadingRow& row) { return rangeNm >= row.fromRangeNm; })
        ->shading;
}

/// What restricts lies over what informs.
constexpr std::array kAirspaceInks{ColorKey::MapClassX, ColorKey::MapClassD, ColorKey::MapClassC,
                                   ColorKey::MapClassB, ColorKey::MapSua};

bool isDrawn(const LineLook& look, const GroundParts& parts, double metresPerPixel) {
    const bool river = look.sheet == SheetKind::Rivers;
    if (metresPerPixel >= look.toMetresPerPixel || !(river ? parts.rivers : parts.borders))
        return false;
    const bool wide = look.fromKind == 0;
    return !river || wide || metresPerPixel >= kRiversFromMetresPerPixel;
}

/// Both ends lie on one side of the raster.
bool isOutside(Point a, Point b, const Coverage& raster) {
    constexpr double kMargin = 4;
    const double right = raster.width() + kMargin;
    const double bottom = raster.height() + kMargin;
    return (a.x < -kMargin && b.x < -kMargin) || (a.y < -kMargin && b.y < -kMargin) ||
           (a.x > right && b.x > right) || (a.y > bottom && b.y > bottom);
}

/// What the raster shows of a line.
void collect(std::span<const Point> line, const Coverage& raster, std::vector<Segment>& to) {
    for (std::size_t i = 1; i < line.size(); ++i)
        if (!isOutside(line[i - 1], line[i], raster))
            to.push_back({line[i - 1], line[i]});
}

/// The same of a dashed one.
void collectDashes(std::span<const Point> line, const Coverage& raster, double scale,
                   std::vector<Segment>& to) {
    for (std::size_t i = 1; i < line.size(); ++i)
        if (!isOutside(line[i - 1], line[i], raster))
            forDashes(
                {line[i - 1], line[i]}, scale,
                [&](Segment dash) {
                    if (!isOutside(dash.from, dash.to, raster))
                        to.push_back(dash);
                });
}

}  // namespace

void GroundRaster::draw(int width, int height, const GroundGrid& grid, const GroundScene& scene,
                        const MapColorCache& colors) {
    width_ = width;
    height_ = height;
    pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    if (!grid.isFlat() || !scene.parts.land)
        std::ranges::fill(pixels_, toPixel(colors[ColorKey::MapBackground]));
    if (!grid.isFlat())
        return;
    if (!coverage_ || coverage_->width() != width_ || coverage_->height() != height_)
        coverage_ = std::make_unique<Coverage>(width_, height_);
    if (scene.parts.land)
        drawLand(grid, scene, colors);
    drawLines(grid, scene, colors);
    drawAirspaces(grid, scene, colors);
    hideBeyondTheWorld(grid, colors[ColorKey::MapBackground]);
}

void GroundRaster::drawLand(const GroundGrid& grid, const GroundScene& scene,
                            const MapColorCache& colors) {
    coverage_->clear();
    std::vector<FinePoint> ring;
    forLandRings(map_, grid, grid.box(width_, height_), grid.metresPerPixel(),
                 [&](std::span<const Point> points, int /*kind*/) {
                     ring.resize(points.size());
                     std::ranges::transform(points, ring.begin(),
                                            [](Point point) { return toFine(point); });
                     coverage_->ring(ring);
                 });
    if (scene.parts.relief && (scene.terrain != nullptr || map_.file().hasRelief()))
        shadeLand(grid, scene, colors);
    else
        ShorePalette(colors[ColorKey::GeoLand], colors[ColorKey::GeoWater])
            .paint(*coverage_, pixels_);
}

void GroundRaster::shadeLand(const GroundGrid& grid, const GroundScene& scene,
                             const MapColorCache& colors) {
    const ReliefPatch relief(map_, grid.box(width_, height_));
    if (scene.terrain != nullptr) {
        HeightGrid heights(width_, height_, scene.pixelRatio > 1 ? kReliefStep : kTerrainStep);
        const TerrainField terrain = readTerrain(*scene.terrain, grid, relief, heights);
        if (terrain.measured || scene.bandsAtFt) {
            colorLand(grid, scene, colors, heights, &terrain);
            if (scene.bandsAtFt)
                hatchUnknown(heights, terrain, scene.pixelRatio, unknownInk(colors, kHatch));
            return;
        }
    }
    HeightGrid heights(width_, height_, kReliefStep);
    relief.fill(grid, heights);
    colorLand(grid, scene, colors, heights, nullptr);
}

void GroundRaster::colorLand(const GroundGrid& grid, const GroundScene& scene,
                             const MapColorCache& colors, const HeightGrid& heights,
                             const TerrainField* terrain) {
    slopesTowards(grid.northWest(), grid.metresPerPixel(), heights, slopes_);
    land_.resize(slopes_.size());
    const double coarse = reliefShading(scene.rangeNm);
    const LandTint& tints = tint(colors);
    const BandColors bands(scene.bandsAtFt, colors);
    for (std::size_t i = 0; i < land_.size(); ++i) {
        const bool measured = terrain != nullptr && terrain->isMeasured[i] != 0;
        const double light = measured ? lightOnSlope(slopes_[i], kTerrainSteepness)
                                      : coarse * lightOnSlope(slopes_[i], kReliefSteepness);
        land_[i] = tints.at(heights.metres[i], light);
        if (scene.bandsAtFt && terrain != nullptr)
            land_[i] = bands.over(land_[i], terrain->highest[i], measured);
    }
    ShorePalette(colors[ColorKey::GeoLand], colors[ColorKey::GeoWater])
        .paint(*coverage_, heights, land_, pixels_);
}

/// Stripes over land whose height nobody knows: it must not look like low ground.
void GroundRaster::hatchUnknown(const HeightGrid& heights, const TerrainField& terrain,
                                double pixelRatio, ColorValue ink) {
    const int apart = static_cast<int>(std::lround(kHatchApart * pixelRatio));
    const int wide = static_cast<int>(std::lround(kHatchWide * pixelRatio));
    const std::uint32_t stripe = toPixel(ink);
    std::vector<std::uint16_t> shares(static_cast<std::size_t>(width_));
    for (int y = 0; y < height_; ++y) {
        if (!coverage_->row(y, shares))
            continue;
        for (int x = 0; x < width_; ++x) {
            const auto column = static_cast<std::size_t>(x);
            if ((x + y) % apart < wide && shares[column] > Coverage::kFull / 2 &&
                terrain.isMeasured[heights.placeOf(x / heights.step, y / heights.step)] == 0)
                pixels_[static_cast<std::size_t>(y) * shares.size() + column] = stripe;
        }
    }
}

const LandTint& GroundRaster::tint(const MapColorCache& colors) {
    const ColorValue land = colors[ColorKey::GeoLand];
    const ColorValue highest = colors[ColorKey::GeoLandMax];
    if (!tint_ || tint_->land != land || tint_->highest != highest)
        tint_.emplace(Tint{land, highest, LandTint(land, highest)});
    return tint_->tint;
}

/// One pass over the tiles of each sheet, whatever its kinds look like.
void GroundRaster::drawLines(const GroundGrid& grid, const GroundScene& scene,
                             const MapColorCache& colors) {
    const GroundGrid::Box box = grid.box(width_, height_);
    const double metres = grid.metresPerPixel();
    std::array<std::vector<Segment>, kLineLooks.size()> lines;
    for (const SheetKind sheet : {SheetKind::Rivers, SheetKind::Borders}) {
        const auto isWanted = [&](const LineLook& look) {
            return look.sheet == sheet && isDrawn(look, scene.parts, metres);
        };
        if (std::ranges::none_of(kLineLooks, isWanted))
            continue;
        forLines(map_, sheet, grid, box, metres, [&](std::span<const Point> line, int kind) {
            for (std::size_t i = 0; i < lines.size(); ++i)
                if (const LineLook& look = kLineLooks.at(i);
                    isWanted(look) && kind >= look.fromKind && kind <= look.toKind)
                    collect(line, *coverage_, lines.at(i));
        });
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const LineLook& look = kLineLooks.at(i);
        paintBands(lines.at(i), look.width * scene.pixelRatio, colors[look.color], look.opacity);
    }
}

void GroundRaster::drawAirspaces(const GroundGrid& grid, const GroundScene& scene,
                                 const MapColorCache& colors) {
    if (scene.airspaces == nullptr || scene.airspaces->all().empty() || !scene.parts.airspaces)
        return;
    std::array<std::vector<Segment>, kAirspaceInks.size()> lines;
    double width = 1;
    forAirspaces(*scene.airspaces, grid, grid.box(width_, height_), scene.rangeNm, scene.altitudes,
                 [&](const Airspace&, const AirspaceLook& look, std::span<const Point> outline) {
                     const auto* const ink = std::ranges::find(kAirspaceInks, look.color);
                     std::vector<Segment>& to =
                         lines.at(static_cast<std::size_t>(ink - kAirspaceInks.begin()));
                     if (look.dashed)
                         collectDashes(outline, *coverage_, scene.pixelRatio, to);
                     else
                         collect(outline, *coverage_, to);
                     width = look.width;  // the same for all of one range
                 });
    for (std::size_t i = 0; i < lines.size(); ++i)
        paintBands(lines.at(i), width * scene.pixelRatio, colors[kAirspaceInks.at(i)],
                   kAirspaceOpacity);
}

void GroundRaster::paintBands(std::span<const Segment> lines, double width, ColorValue color,
                              double opacity) {
    if (lines.empty())
        return;
    coverage_->clear();
    for (const Segment& line : lines)
        coverage_->band(line.from, line.to, width);
    paintOver(*coverage_, color, opacity, pixels_);
}

/// Nothing lies beyond the poles, and nothing is shown twice where the view is wider than the
/// world.
void GroundRaster::hideBeyondTheWorld(const GroundGrid& grid, ColorValue background) {
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
