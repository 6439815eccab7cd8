// What the profile costs with each new position, over hills and under a hundred airspaces: cutting
// ground and airspaces along the way anew, and painting the strip of a 1280x800 window on the
// toolkit's raster. The goal is 2 ms for both.

#include <array>
#include <cmath>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include "TempFolder.h"
#include "cockpit/CockpitData.h"
#include "cockpit/GroundData.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "map/profile/ProfileFeed.h"
#include "map/profile/ProfilePainter.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "qtpaint/QtCanvas.h"

namespace korvel {
namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 140;

/// Tiles of hills from 46 to 47 N and 8 to 11 E; what lies beyond is asked of the base map.
struct Country {
    Country() {
        for (int west = 8; west < 12; ++west)
            writeTile(west);
        benchmark::DoNotOptimize(map.open(KORVEL_WORLD_MAP));
        std::vector<Airspace> all;
        for (int i = 0; i < 100; ++i)
            all.push_back(circle(46.2 + 0.07 * (i % 10), 8.2 + 0.5 * (i / 10)));
        airspaces.assign(std::move(all));
        terrain.open({folder.path()});
        terrain.waitUntilSettled();
    }
    void writeTile(int west) const {
        std::string bytes;
        for (int row = 0; row < 1201; ++row)
            for (int column = 0; column < 1201; ++column) {
                const double height =
                    1500 + 900 * std::sin(column * 0.02) * std::cos(row * 0.013 + west);
                const auto metres = static_cast<unsigned>(height);
                bytes += static_cast<char>(metres >> 8U & 0xFFU);
                bytes += static_cast<char>(metres & 0xFFU);
            }
        folder.write(nameOfTile({46, west}) + ".hgt", bytes);
    }
    static Airspace circle(double lat, double lon) {
        Airspace airspace;
        airspace.name = "FIELD";
        airspace.airspaceClass = "D";
        airspace.floor = {.text = "GND", .ft = 1000, .reference = LimitReference::Agl};
        airspace.ceiling = {.text = "FL95", .ft = 9500, .reference = LimitReference::FlightLevel};
        AirspaceRing& ring = airspace.rings.emplace_back();
        for (int i = 0; i < 120; ++i)
            ring.push_back({(lat + 0.1 * std::sin(i * kTwoPi / 120)) * kDegToRad,
                            (lon + 0.15 * std::cos(i * kTwoPi / 120)) * kDegToRad});
        return airspace;
    }

    TempFolder folder;
    BaseMap map;
    AirspaceSet airspaces;
    TerrainStore terrain;
};

/// Eastwards along 46.5 N; each frame a little farther.
struct Flight {
    explicit Flight(int range) : rangeNm(range) {
        data.position = GeoPoint{46.5 * kDegToRad, 8.1 * kDegToRad};
        data.trackTrueDeg = 89;
        data.groundSpeedKt = 120;
        data.altitudeFt = 6500;
        data.verticalSpeedFpm = -300;
        data.fix3D = true;
        update();
        country().terrain.waitUntilSettled();
        update();
    }
    static Country& country() {
        static Country country;
        return country;
    }
    void update() {
        data.position->lon += 1e-7;
        feed.update({data, settings, profileLengthNm(rangeNm), kWidth});
    }

    int rangeNm;
    CockpitData data;
    Settings settings;
    ProfileFeed feed{
        {.map = &country().map, .airspaces = &country().airspaces, .terrain = &country().terrain}};
};

void cutProfile(benchmark::State& state) {
    Flight flight(static_cast<int>(state.range(0)));
    for (auto frame : state)
        flight.update();
    state.counters["slices"] = static_cast<double>(flight.feed.content().airspaces.size());
}
BENCHMARK(cutProfile)->Arg(4)->Arg(15)->Arg(40)->Arg(250)->Unit(benchmark::kMillisecond);

void paintStrip(benchmark::State& state) {
    static int argc = 1;
    static std::string name = "bench_profile";
    static std::array<char*, 2> argv = {name.data(), nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: at the process's end the toolkit's own statics go before it.
    static const auto* application = std::make_unique<QGuiApplication>(argc, argv.data()).release();
    benchmark::DoNotOptimize(application);
    const Flight flight(static_cast<int>(state.range(0)));
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    DisplayFonts fonts{QString()};
    LabelCache labels(fonts);
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    for (auto frame : state) {
        QPainter painter(&image);
        QtCanvas canvas(painter, labels, {0, 0, kWidth, kHeight});
        paintProfile(canvas, flight.feed.content(), colors);
    }
}
BENCHMARK(paintStrip)->Arg(4)->Arg(15)->Arg(40)->Arg(250)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvel
