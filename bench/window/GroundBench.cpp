// What the ground costs at 1280x800: land and water drawn by ourselves, the whole picture with
// rivers and borders, and the toolkit's fill of the same rings, in the same run. The goals are a
// tenth of the toolkit's time and 8 ms.

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <benchmark/benchmark.h>

#include "geo/Geodesy.h"
#include "ground/basemap/BaseMap.h"
#include "map/ground/GroundGrid.h"
#include "map/ground/GroundPicture.h"
#include "map/ground/GroundTiles.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/ground/Coverage.h"
#include "paint/ground/GroundColors.h"

namespace korvel {
namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;

struct Region {
    const char* name;
    double lat;
    double lon;
};
constexpr std::array kRegions{Region{"Turku", 60.2, 22.0},    Region{"Stockholm", 59.3, 18.9},
                              Region{"Norway", 61.0, 5.2},    Region{"GreatLakes", 45.6, -83.5},
                              Region{"NewYork", 41.2, -72.5}, Region{"PugetSound", 47.6, -122.4}};

BaseMap& world() {
    static BaseMap map;
    if (!map.isOpen())
        benchmark::DoNotOptimize(map.open(KORVEL_WORLD_MAP));
    return map;
}

MapView viewOf(const Region& region, int rangeNm) {
    MapViewport viewport;
    viewport.layout(PageId::Map, kWidth, kHeight);
    viewport.chooseRange(rangeNm);
    return {
        viewport, {region.lat * kDegToRad, region.lon * kDegToRad}, 30, {0, 0, kWidth, kHeight}};
}

using Rings = std::vector<std::vector<Point>>;

Rings ringsOf(const MapView& view) {
    const GroundGrid grid(view.projection, {0, 0}, 1);
    Rings rings;
    forLandRings(
        world(), grid, grid.box(kWidth, kHeight), grid.metresPerPixel(),
        [&](std::span<const Point> ring, int) { rings.emplace_back(ring.begin(), ring.end()); });
    return rings;
}

/// Coverage and colour of rings that are projected already, as the toolkit gets them below.
void fillOurs(benchmark::State& state, const Region& region) {
    const Rings rings = ringsOf(viewOf(region, static_cast<int>(state.range(0))));
    Coverage coverage(kWidth, kHeight);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(kWidth) * kHeight);
    const ShorePalette palette(Rgb(238, 232, 170), Rgb(102, 153, 255));
    std::vector<FinePoint> fine;
    for (auto frame : state) {
        coverage.clear();
        for (const auto& ring : rings) {
            fine.clear();
            for (const Point point : ring)
                fine.push_back(toFine(point));
            coverage.ring(fine);
        }
        palette.paint(coverage, pixels);
        benchmark::DoNotOptimize(pixels.data());
    }
}

void fillToolkit(benchmark::State& state, const Region& region) {
    const Rings rings = ringsOf(viewOf(region, static_cast<int>(state.range(0))));
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    for (auto frame : state) {
        image.fill(QColor(102, 153, 255));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(238, 232, 170));
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        for (const auto& ring : rings) {
            path.moveTo(ring.front().x, ring.front().y);
            for (const Point point : ring)
                path.lineTo(point.x, point.y);
            path.closeSubpath();
        }
        painter.drawPath(path);
    }
}

/// All of the picture, larger than the view as it is, tiles from the cache.
void picture(benchmark::State& state, const Region& region) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    const MapView view = viewOf(region, static_cast<int>(state.range(0)));
    GroundPicture ground(world());
    for (auto frame : state) {
        ground.forget();
        ground.prepare(view, colors, 1);
        benchmark::DoNotOptimize(ground.bitmap().pixels.data());
    }
}

void openWorld(benchmark::State& state) {
    for (auto frame : state) {
        BaseMap map;
        benchmark::DoNotOptimize(map.open(KORVEL_WORLD_MAP));
    }
}
BENCHMARK(openWorld)->Unit(benchmark::kMillisecond);

void registerAll() {
    const auto add = [](const std::string& name, auto function, const Region& region) {
        auto* const each = benchmark::RegisterBenchmark(
            (name + "/" + region.name).c_str(),
            [function, &region](benchmark::State& state) { function(state, region); });
        for (const int range : {1, 4, 8, 15, 25, 40, 65, 100, 250, 500, 1000})
            each->Arg(range);
        each->Unit(benchmark::kMillisecond);
    };
    for (const Region& region : kRegions) {
        add("ours", fillOurs, region);
        add("toolkit", fillToolkit, region);
        add("picture", picture, region);
    }
}
const bool kRegistered = (registerAll(), true);

}  // namespace
}  // namespace korvel
