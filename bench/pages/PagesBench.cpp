// What the painters cost by themselves, without a raster: where things stand, which labels fit, and
// the clipping. What the raster adds is measured in bench/app.

#include <cmath>
#include <memory>
#include <span>
#include <vector>

#include <benchmark/benchmark.h>

#include "geo/Geodesy.h"
#include "map/feeds/TrackLevels.h"
#include "map/layers/TrackLayer.h"
#include "paint/Clip.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "platform/VirtualClock.h"
#include "screen/PagePainter.h"

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

/// 139 hours of flight as points every five seconds: wandering over a continent, or circuits
/// around one aerodrome.
std::shared_ptr<const Track> longTrack(bool circuits) {
    static VirtualClock clock;
    auto track = std::make_shared<Track>(clock);
    GeoPoint at{48.35 * kDegToRad, 11.79 * kDegToRad};
    double course = 0;
    for (int i = 0; i < 100000; ++i) {
        // A turn of 360 degrees in 4 minutes, and a little wind; or slow bends.
        course += circuits ? kTwoPi / 48 + 1e-4 : 0.05 * std::sin(i * 0.003);
        PointAtRadialDistance(at.lat, at.lon, 0.14 / kNmPerRadian, course, at.lat, at.lon);
        track->AddTrackPoint(at, 100, 0, 2000);
        clock.advanceMs(5000);
    }
    return track;
}

/// What of a track of 100,000 points is to be drawn; `segments` tells how much that is.
void trackInView(benchmark::State& state, bool circuits) {
    TrackLevels levels;
    levels.update(longTrack(circuits));
    MapProjection projection({48.35 * kDegToRad, 11.79 * kDegToRad}, {640, 430},
                             430.0 / static_cast<double>(state.range(0)), 30);
    std::size_t segments = 0;
    for (auto frame : state)
        segments = trackSegments(levels, projection, {0, 0, 1280, 800}).size();
    state.counters["segments"] = static_cast<double>(segments);
}
BENCHMARK_CAPTURE(trackInView, wandering, false)
    ->Arg(4)
    ->Arg(40)
    ->Arg(250)
    ->Arg(1000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(trackInView, circuits, true)
    ->Arg(4)
    ->Arg(40)
    ->Arg(250)
    ->Arg(1000)
    ->Unit(benchmark::kMicrosecond);

/// Opening such a track, and what one more point costs.
void trackTaken(benchmark::State& state) {
    const std::shared_ptr<const Track> track = longTrack(false);
    for (auto round : state) {
        TrackLevels levels;
        levels.update(track);
        benchmark::DoNotOptimize(levels.end());
    }
}
BENCHMARK(trackTaken)->Unit(benchmark::kMillisecond);

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
