// What one full redraw of the window's inside costs on the toolkit's raster, at 1280x800. The goal
// is 4 ms for the map page.

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "map/MapView.h"
#include "map/feeds/MapFeeds.h"
#include "navdb/NavDatabase.h"
#include "pages/FieldStrip.h"
#include "pages/ScreenLayout.h"
#include "pages/TouchBar.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "platform/SystemClock.h"
#include "qtpaint/QtCanvas.h"
#include "screen/PagePainter.h"

namespace korvel {
namespace {

/// The toolkit needs an application object before fonts can be used.
void startToolkit() {
    static int argc = 1;
    static std::string name = "bench_frame";
    static std::array<char*, 2> argv = {name.data(), nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: at the process's end the toolkit's own statics go before it.
    static const auto* application = std::make_unique<QGuiApplication>(argc, argv.data()).release();
    benchmark::DoNotOptimize(application);
}

CockpitData cruise() {
    CockpitData data;
    data.position = GeoPoint{47.45 * kDegToRad, -122.31 * kDegToRad};
    data.groundSpeedKt = 118.4;
    data.trackMagDeg = 206;
    data.trackTrueDeg = 222;
    data.altitudeFt = 4500;
    data.verticalSpeedFpm = -350;
    data.bearingMagDeg = 211;
    data.desiredTrackMagDeg = 208;
    data.distanceNm = 23.4;
    data.crossTrackNm = 0.8;
    data.bankDeg = 7.5;
    data.pitchDeg = -1.7;
    data.fixQuality = 1;
    data.satsInUse = 9;
    for (int i = 0; i < 12; ++i)
        data.satellites.push_back({.number = i + 1,
                                   .used = true,
                                   .signalDb = 30 + i,
                                   .azimuthDeg = i * 29,
                                   .elevationDeg = i * 7});
    return data;
}

void redraw(benchmark::State& state, PageId page, double ratio) {
    startToolkit();
    constexpr double kWidth = 1280;
    constexpr double kHeight = 800;
    QImage image(static_cast<int>(kWidth * ratio), static_cast<int>(kHeight * ratio),
                 QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    DisplayFonts fonts{QString()};
    LabelCache labels(fonts);
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    const PagePainter pages(colors);
    const FieldStrip fields(colors);
    const TouchBar bar(colors);
    const std::array<TouchButton, 3> buttons = {
        {{TouchCommand::Page}, {TouchCommand::ZoomOut}, {TouchCommand::ZoomIn}}};
    const ScreenLayout layout = layOutScreen({.width = kWidth,
                                              .height = kHeight,
                                              .pxPerMm = 0,
                                              .fieldCount = defaultNavFields().size(),
                                              .buttonCount = buttons.size()});
    MapViewport viewport;
    viewport.layout(page, static_cast<int>(layout.page.width),
                    static_cast<int>(layout.page.height));
    CockpitData data = cruise();
    for (auto frame : state) {
        // Every frame is a new situation, as in flight: nothing can be drawn from the last one.
        data.position->lat += 1e-5;
        QPainter painter(&image);
        {
            QtCanvas canvas(painter, labels, layout.page);
            pages.paint(canvas, page, {.data = data, .viewport = viewport, .upTrueDeg = 222});
        }
        {
            QtCanvas canvas(painter, labels, layout.fields);
            fields.paint(canvas, layout.arrangement,
                         FieldStrip::fitting(defaultNavFields(), layout.arrangement,
                                             layout.fields.width, layout.fields.height),
                         data);
        }
        QtCanvas canvas(painter, labels, layout.touchBar);
        bar.paint(canvas, buttons);
    }
}

BENCHMARK_CAPTURE(redraw, Map, PageId::Map, 1.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, MapAtTwiceTheScale, PageId::Map, 2.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, MapHsi, PageId::MapHsi, 1.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, Hsi, PageId::Hsi, 1.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, Efis, PageId::Efis, 1.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, Satellite, PageId::Satellite, 1.0)->Unit(benchmark::kMillisecond);

// The map of the busiest regions at every range, their places from the bundled database.

struct Region {
    std::string_view name;
    double lat;
    double lon;
};
constexpr std::array kBusiest{Region{"New York", 40.7, -73.9}, Region{"Frankfurt", 50.03, 8.57}};

const NavDatabase& world() {
    static const SystemClock clock;
    static NavDatabase database(clock);
    static const std::string error =
        database.openFile(KORVEL_WORLD_DATABASE) +
        database.openFile(
            std::filesystem::path(KORVEL_WORLD_DATABASE).replace_filename("airways.ng2"));
    return database;
}

/// Looking at one of the regions, at one of the ranges.
struct BusyView {
    explicit BusyView(const benchmark::State& state)
        : region(kBusiest.at(static_cast<std::size_t>(state.range(0)))) {
        viewport.layout(PageId::Map, 1280, 800);
        viewport.chooseRange(static_cast<int>(state.range(1)));
        data.position = GeoPoint{region.lat * kDegToRad, region.lon * kDegToRad};
        addPlan(static_cast<double>(state.range(1)));
    }
    /// To and fro over all of the map.
    void addPlan(double rangeNm) {
        constexpr int kWaypoints = 20;
        auto plan = std::make_shared<PlanView>();
        plan->active = 1;
        for (int i = 0; i < kWaypoints; ++i) {
            PlanRow row;
            row.ident = "WAYPT";
            PointAtRadialDistance(data.position->lat, data.position->lon,
                                  rangeNm / kNmPerRadian * (0.2 + 0.06 * i), i * 2.6,
                                  row.position.lat, row.position.lon);
            plan->rows.push_back(row);
        }
        data.legStart = plan->rows[0].position;
        data.activeWaypoint = plan->rows[1].position;
        data.plan = plan;
    }
    MapProjection projection() const { return viewport.projection(*data.position, 222); }
    bool update(MapFeeds& feeds) const {
        Settings settings;
        settings.displayPrivateAirports = 1;
        return feeds.update(
            {MapView(viewport, *data.position, 222, {0, 0, 1280, 800}), data, settings});
    }

    Region region;
    MapViewport viewport;
    CockpitData data = cruise();
};

/// The map page alone, on a raster of its own.
struct MapSheet {
    MapSheet() : image(1280, 800, QImage::Format_RGB32) {}
    void paint(const BusyView& view, const MapFeeds& feeds, int upTrueDeg) {
        QPainter painter(&image);
        QtCanvas canvas(painter, labels, {0, 0, 1280, 800});
        pages.paint(canvas, PageId::Map,
                    {.data = view.data,
                     .viewport = view.viewport,
                     .upTrueDeg = upTrueDeg,
                     .feeds = &feeds});
    }

    QImage image;
    DisplayFonts fonts{QString()};
    LabelCache labels{fonts};
    const ColorScheme scheme;
    const MapColorCache colors{scheme};
    const PagePainter pages{colors};
};

void busyMap(benchmark::State& state) {
    startToolkit();
    MapSheet sheet;
    BusyView view(state);
    MapFeeds feeds(world());
    while (view.update(feeds) || !feeds.isComplete()) {
    }
    for (auto frame : state) {
        view.data.position->lat += 1e-7;
        sheet.paint(view, feeds, 222);
    }
    state.SetLabel(std::string(view.region.name) + ", " +
                   std::to_string(feeds.places().places.size()) + " places");
}

/// A finger that crosses the map in two seconds, at 60 frames a second: what comes into view is
/// fetched on the way. Or a turn by a degree in each frame.
void movingMap(benchmark::State& state, bool turns) {
    startToolkit();
    MapSheet sheet;
    BusyView view(state);
    MapFeeds feeds(world());
    while (view.update(feeds) || !feeds.isComplete()) {
    }
    constexpr double kStepPx = 1280.0 / 120;
    const double stepRad = kStepPx / view.projection().pixelsPerNm() / kNmPerRadian;
    std::vector<double> frames;  // ms
    int number = 180;
    for (auto frame : state) {
        const auto start = std::chrono::steady_clock::now();
        ++number;
        // To and fro over three maps, so that the region stays a busy one.
        if (!turns)
            view.data.position->lon += number / 360 % 2 == 0 ? stepRad : -stepRad;
        view.update(feeds);
        sheet.paint(view, feeds, turns ? number % 360 : 222);
        const std::chrono::duration<double, std::milli> taken =
            std::chrono::steady_clock::now() - start;
        frames.push_back(taken.count());
    }
    std::ranges::sort(frames);
    state.counters["p99_ms"] = frames[frames.size() * 99 / 100];
    state.counters["longest_ms"] = frames.back();
    state.SetLabel(std::string(view.region.name));
}

/// The places of a view that was not seen before; the records of the most important ones.
void fetchPlaces(benchmark::State& state) {
    const BusyView view(state);
    MapFeeds feeds(world());
    for (auto fetch : state) {
        feeds.forget();
        benchmark::DoNotOptimize(view.update(feeds));
    }
}

/// What is left of the records, for one update.
void readRecords(benchmark::State& state) {
    const BusyView view(state);
    double updates = 0;
    for (auto fetch : state) {
        state.PauseTiming();
        MapFeeds feeds(world());
        view.update(feeds);
        state.ResumeTiming();
        while (!feeds.isComplete()) {
            view.update(feeds);
            ++updates;
        }
    }
    state.counters["updates"] = benchmark::Counter(updates, benchmark::Counter::kAvgIterations);
}

void everyRange(benchmark::internal::Benchmark* bench) {
    bench->Unit(benchmark::kMillisecond);
    for (int region = 0; region < static_cast<int>(kBusiest.size()); ++region)
        for (const int rangeNm : kRangeStepsNm)
            bench->Args({region, rangeNm});
}
BENCHMARK(busyMap)->Apply(everyRange);
BENCHMARK_CAPTURE(movingMap, pan, false)->Apply(everyRange);
BENCHMARK_CAPTURE(movingMap, turn, true)->Apply(everyRange);
BENCHMARK(fetchPlaces)->Apply(everyRange);
BENCHMARK(readRecords)->Apply(everyRange);

/// A label that is drawn for the first time, halo included.
void newLabel(benchmark::State& state) {
    startToolkit();
    DisplayFonts fonts{QString()};
    LabelCache labels(fonts);
    const TextStyle style{.font = {13}, .color = 0, .halo = Rgb(255, 255, 255)};
    int number = 0;
    for (auto label : state)
        benchmark::DoNotOptimize(labels.get("KS" + std::to_string(++number), style, 1));
}
BENCHMARK(newLabel)->Unit(benchmark::kMicrosecond);

/// A long wide line, such as a recorded track.
void wideTrack(benchmark::State& state) {
    startToolkit();
    QImage image(1280, 800, QImage::Format_RGB32);
    DisplayFonts fonts{QString()};
    LabelCache labels(fonts);
    QPainter painter(&image);
    QtCanvas canvas(painter, labels, {0, 0, 1280, 800});
    std::vector<Point> track;
    for (int i = 0; i < 10000; ++i)
        track.push_back({640 + 500 * std::cos(i * 0.004), 400 + 350 * std::sin(i * 0.0052)});
    for (auto line : state)
        canvas.polyline(track, {.color = 0, .width = static_cast<double>(state.range(0))});
}
BENCHMARK(wideTrack)->Arg(1)->Arg(2)->Arg(4)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvel
