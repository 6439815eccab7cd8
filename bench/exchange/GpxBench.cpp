// How fast another program's track of 100,000 points is opened: from the file to the track that the
// map shows.
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <sys/resource.h>

#include <benchmark/benchmark.h>

#include "cockpit/FileOpening.h"
#include "platform/FileIo.h"
#include "platform/VirtualClock.h"

namespace {

constexpr int kPoints = 100000;
constexpr int kPeerRuns = 5;

/// A flight of about a day with a point a second, as receivers write them.
std::filesystem::path gpxFile() {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<gpx version=\"1.1\" creator=\"bench\" "
        "xmlns=\"http://www.topografix.com/GPX/1/1\"><trk><name>t</name><trkseg>\n";
    for (int i = 0; i < kPoints; ++i) {
        std::array<char, 160> line{};
        std::snprintf(line.data(), line.size(),
                      "<trkpt lat=\"%.6f\" lon=\"%.6f\"><ele>%.1f</ele>"
                      "<time>2026-08-%02dT%02d:%02d:%02dZ</time></trkpt>\n",
                      47 + std::sin(i / 9000.0), -122 + i / 50000.0, 1000.0 + i % 300,
                      6 + i / 86400, i / 3600 % 24, i / 60 % 60, i % 60);
        text += line.data();
    }
    text += "</trkseg></trk></gpx>\n";
    const auto path = std::filesystem::temp_directory_path() / "korvel-bench.gpx";
    if (!korvel::writeFileAtomically(path, text))
        std::abort();
    return path;
}

/// What the peer takes to read the file and write it nowhere, in seconds of processor time; 0
/// without it.
double peerSeconds(const std::filesystem::path& file) {
    const auto used = [] {
        rusage children{};
        getrusage(RUSAGE_CHILDREN, &children);
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
        };
        return seconds(children.ru_utime) + seconds(children.ru_stime);
    };
    const std::string command = "gpsbabel -i gpx -f '" + file.string() + "' >/dev/null 2>&1";
    const double before = used();
    for (int i = 0; i < kPeerRuns; ++i)
        if (std::system(command.c_str()) != 0)  // NOLINT(concurrency-mt-unsafe): one thread
            return 0.0;
    return (used() - before) / kPeerRuns;
}

void openTrack(benchmark::State& state) {
    const auto file = gpxFile();
    const double peer = peerSeconds(file);
    const korvel::VirtualClock clock;
    const std::clock_t before = std::clock();
    for (auto _ : state) {
        auto found = korvel::FileOpening::read(file, clock);
        if (!found.track.error.empty())
            state.SkipWithError("the track is refused");
        benchmark::DoNotOptimize(found);
    }
    const double own = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC /
                       static_cast<double>(state.iterations());
    state.counters["points/s"] = kPoints / own;
    if (peer > 0.0) {
        state.counters["gpsbabel ms"] = peer * 1000.0;
        state.counters["times as fast"] = peer / own;
    }
    std::filesystem::remove(file);
}
BENCHMARK(openTrack)->Unit(benchmark::kMillisecond)->Iterations(20);

}  // namespace
