#include <string>

#include <benchmark/benchmark.h>

#include "AllocationCount.h"
#include "TempFolder.h"
#include "geo/Geodesy.h"
#include "nav/leg/ActiveNavigation.h"
#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlaceMatches.h"
#include "nav/plan/RouteEntry.h"
#include "nav/track/TrackRecorder.h"
#include "navdb/NavDatabase.h"
#include "navdb/TestDatabase.h"
#include "platform/VirtualClock.h"

namespace korvel {
namespace {

/// Eight airways of twenty fixes each, side by side, and 20,000 more fixes.
struct World {
    World() {
        TestDatabase file;
        for (int airway = 0; airway < 8; ++airway) {
            std::string route;
            for (int fix = 0; fix < 20; ++fix) {
                const std::string ident = "F" + std::to_string(airway * 100 + fix);
                file.addFix(ident, 40 + airway * 0.5, fix * 0.25);
                route += ident + " ";
            }
            file.addAirway("V" + std::to_string(airway), route);
        }
        for (int i = 0; i < 20000; ++i)
            file.addFix("X" + std::to_string(i), i % 160 - 80, i % 350 - 175);
        error = database.openFile(file.write(folder.path(), "world.ng2"));
    }
    TempFolder folder;
    VirtualClock clock;
    NavDatabase database{clock};
    GeneratedFixes fixes;
    std::string error;
};

/// 30 words, eight of them airways.
std::string longRoute() {
    std::string route;
    for (int airway = 0; airway < 8; ++airway) {
        const std::string number = std::to_string(airway);
        route += "F" + std::to_string(airway * 100) + " V" + number + " F" +
                 std::to_string(airway * 100 + 19) + " ";
    }
    return route + "X1 X2 X3 X4 X5 X6";
}

void enterRoute(benchmark::State& state) {
    World world;
    const std::string route = longRoute();
    std::size_t entries = 0;
    for (auto unused : state) {
        RouteEntry entry(world.database, world.fixes, GeoPoint{0.7, 0.0});
        const RouteResult result = entry.EnterRoute(route, true);
        entries = result.error.empty() ? result.entries.size() : 0;
    }
    state.counters["entries"] = static_cast<double>(entries);
}
BENCHMARK(enterRoute)->Unit(benchmark::kMillisecond);

/// The bundled database of the world.
struct BundledWorld {
    BundledWorld() : error(database.openFile(KORVEL_WORLD_DATABASE)) {
        error += database.openFile(
            std::filesystem::path(KORVEL_WORLD_DATABASE).replace_filename("airways.ng2"));
        error += database.openTowns(
            std::filesystem::path(KORVEL_WORLD_DATABASE).replace_extension("twn"));
    }
    VirtualClock clock;
    NavDatabase database{clock};
    GeneratedFixes fixes;
    std::string error;
};

/// 30 words, eight of them airways, across America and over to Europe and back.
constexpr std::string_view kAcrossTheWorld =
    "HQM J70 SEA V23 BTG V448 YKM V448 GEG MLP J70 ABR GEP J70 PMM J70 JHW J70 JFK BOS KBOS EGLL "
    "LFPG EDDF LEMD KSEA PDX OAK LAX KLAX";

void enterRouteOfTheWorld(benchmark::State& state) {
    BundledWorld world;
    RouteResult result;
    for (auto unused : state) {
        RouteEntry entry(world.database, world.fixes, GeoPoint{0.83, -2.13});
        result = entry.EnterRoute(kAcrossTheWorld, true);
    }
    if (!result.error.empty() || !world.error.empty())
        state.SkipWithError((world.error + result.error).c_str());
    state.counters["entries"] = static_cast<double>(result.entries.size());
}
BENCHMARK(enterRouteOfTheWorld)->Unit(benchmark::kMillisecond);

/// A stroke of a key: places that the beginning of a word may become.
void completeWord(benchmark::State& state, const char* typed) {
    BundledWorld world;
    std::size_t matches = 0;
    for (auto unused : state)
        matches = placeMatches(world.database, typed, GeoPoint{0.83, -2.13}, 12).size();
    state.counters["matches"] = static_cast<double>(matches);
}
BENCHMARK_CAPTURE(completeWord, one letter, "S")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(completeWord, two letters, "SE")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(completeWord, four letters, "KSEA")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(completeWord, a name, "PORTL")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(completeWord, a word of many names, "SAN")->Unit(benchmark::kMillisecond);

/// A tick with a plan of 100 entries and a track of 100,000 points.
void navUpdate(benchmark::State& state) {
    World world;
    GuardedPlan plan;
    RouteEntry entry(world.database, world.fixes, std::nullopt);
    std::vector<PlanWaypoint> entries = entry.EnterRoute(longRoute(), true).entries;
    entries.resize(100, entries.back());
    entries.back().altitudeFt = 2000;
    *plan.lock() = FlightPlan(entries);
    TrackRecorder track(world.clock);
    for (int i = 0; i < 100000; ++i) {
        track.offer({0.5, i * 1e-5}, 100, 90, 3000);
        world.clock.advanceMs(5000);
    }
    FlightLog log(world.clock, {}, [] { return std::string(); });
    Simulator simulator;
    ActiveNavigation navigation(
        {world.clock, world.database, world.fixes, plan, simulator, track, log});
    navigation.setOptions({.tracking = true});
    ActiveNavigation::Aircraft aircraft{
        .position = {0.7, 0.0}, .groundSpeedKt = 100.0, .trackMag = 90.0, .altitudeFt = 5000};
    navigation.NavUpdate(aircraft);
    const std::int64_t before = allocationCount();
    for (auto unused : state) {
        aircraft.position.lon += 1e-9;
        navigation.NavUpdate(aircraft);
    }
    state.counters["allocations"] = benchmark::Counter(
        static_cast<double>(allocationCount() - before), benchmark::Counter::kAvgIterations);
}
BENCHMARK(navUpdate)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvel
