// What the painters cost by themselves, without a raster: where things stand, which labels fit, and
// the clipping. What the raster adds is measured in bench/app.

#include <cmath>
#include <span>
#include <vector>

#include <benchmark/benchmark.h>

#include "display/Clip.h"
#include "display/ColorScheme.h"
#include "display/MapColorCache.h"
#include "display/PagePainter.h"
#include "display/RecordingCanvas.h"
#include "nav/Geodesy.h"

namespace korvel {
namespace {

void paintPage(benchmark::State& state, PageId page) {
    constexpr int kWidth = 1280;
    constexpr int kHeight = 660;  // of an 800 pixel window
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    const PagePainter painter(colors);
    MapViewport viewport;
    viewport.layout(page, kWidth, kHeight);
    CockpitData data;
    data.position = GeoPoint{48.35 * kDegToRad, 11.79 * kDegToRad};
    data.trackTrueDeg = 86;
    RecordingCanvas canvas(kWidth, kHeight);
    for (auto frame : state) {
        data.position->lat += 1e-5;
        canvas.clear();
        painter.paint(canvas, page, {.data = data, .viewport = viewport, .upTrueDeg = 86});
        benchmark::DoNotOptimize(canvas.elements().data());
    }
}
BENCHMARK_CAPTURE(paintPage, Map, PageId::Map)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(paintPage, NorthUp, PageId::NorthUp)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(paintPage, Satellite, PageId::Satellite)->Unit(benchmark::kMicrosecond);

// A day's track of 10,000 points, of which a tenth lies in the view.
void clipTrack(benchmark::State& state) {
    std::vector<Point> track;
    for (int i = 0; i < 10000; ++i)
        track.push_back({640 + 4000 * std::cos(i * 0.004), 400 + 3000 * std::sin(i * 0.0052)});
    std::size_t points = 0;
    for (auto round : state)
        clipPolyline(track, {0, 0, 1280, 800},
                     [&points](std::span<const Point> piece) { points += piece.size(); });
    benchmark::DoNotOptimize(points);
}
BENCHMARK(clipTrack)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvel
