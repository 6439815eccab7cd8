// Look-ups in the bundled world database beside SQLite with the same places, in one process. The
// keys go through the whole world in a scattered order, so that "warm" means the system's file
// cache, not one hot row; the "Same" ones ask for a few keys again and again.
#include <array>
#include <cmath>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>

#include "SqlitePlaces.h"
#include "geo/Geodesy.h"
#include "navdb/NavDatabase.h"
#include "navdb/file/DatabaseFile.h"
#include "platform/SystemClock.h"

namespace korvel {
namespace {

constexpr std::string_view kWorld = KORVEL_WORLD_DATABASE;
// Where the world's places stand closest: the north-east of the United States.
constexpr double kBusyLat = 40.6;
constexpr double kBusyLon = -74.0;
constexpr double kViewNm = 100.0;
constexpr std::array<std::string_view, 4> kFewKeys{"a.KSEA", "v.SEA", "v.OLM", "a.LSZH"};

const SystemClock& systemClock() {
    static const SystemClock clock;
    return clock;
}

const std::filesystem::path& sqliteFile() {
    static const std::filesystem::path path = [] {
        auto file = std::filesystem::temp_directory_path() / "korvel-bench-places.sqlite";
        SqlitePlaces::build(file, kWorld);
        return file;
    }();
    return path;
}

/// Keys of places from all over the indexes.
const std::vector<std::string>& scatteredKeys() {
    static const std::vector<std::string> keys = [] {
        std::vector<std::string> result;
        DatabaseFile file;
        if (!file.Open(kWorld, systemClock()).empty())
            return result;
        const auto rows = file.rows();
        std::string ident;
        for (std::uint32_t i = 0; i < 4096; ++i) {
            const IndexEntry& index = *file.index(i % 2 == 0 ? "AptKey" : "NavKey");
            if (rows->load(index, i * 2654435761U % index.rowCount())) {
                rows->text(orderingField(index), ident);
                result.push_back(makeRecordKey(i % 2 == 0 ? kAirportKind : kFixKind, ident));
            }
        }
        return result;
    }();
    return keys;
}

GeoBox busyView() {
    const double height = kViewNm / 60;
    const double width = height / std::cos(kBusyLat * kDegToRad);
    return {kBusyLat - height, kBusyLon - width, kBusyLat + height, kBusyLon + width};
}

GeoPoint busyPoint() { return {.lat = kBusyLat * kDegToRad, .lon = kBusyLon * kDegToRad}; }

void dropFromCache(const std::filesystem::path& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_DONTNEED);
    ::close(fd);
}

struct Opened {
    NavDatabase database{systemClock()};
    Opened() { (void)database.openFile(kWorld); }
};

void OpenNg2(benchmark::State& state) {
    for (auto _ : state) {
        DatabaseFile file;
        benchmark::DoNotOptimize(file.Open(kWorld, systemClock()));
    }
}
void OpenSqlite(benchmark::State& state) {
    sqliteFile();
    for (auto _ : state) {
        SqlitePlaces places(sqliteFile());
        SqlitePlaces::Row row;
        benchmark::DoNotOptimize(places.find(kVorKind, "SEA", row));
    }
}

void ColdKeyNg2(benchmark::State& state) {
    std::size_t i = 0;
    for (auto _ : state) {
        state.PauseTiming();
        dropFromCache(kWorld);
        Opened opened;
        state.ResumeTiming();
        benchmark::DoNotOptimize(opened.database.Find(scatteredKeys()[i++ % 4096]));
    }
}
void ColdKeySqlite(benchmark::State& state) {
    std::size_t i = 0;
    SqlitePlaces::Row row;
    for (auto _ : state) {
        state.PauseTiming();
        dropFromCache(sqliteFile());
        SqlitePlaces places(sqliteFile());
        const std::string& key = scatteredKeys()[i++ % 4096];
        state.ResumeTiming();
        benchmark::DoNotOptimize(
            places.find(key[0] == 'a' ? kAirportKind : kFixKind, identOfKey(key), row));
    }
}

void FindKeysNg2(benchmark::State& state, bool few) {
    Opened opened;
    std::size_t i = 0;
    for (auto _ : state) {
        const std::string_view key = few ? kFewKeys[i % 4] : scatteredKeys()[i % 4096];
        benchmark::DoNotOptimize(opened.database.Find(key));
        ++i;
    }
}
void FindKeysSqlite(benchmark::State& state, bool few) {
    SqlitePlaces places(sqliteFile());
    SqlitePlaces::Row row;
    std::size_t i = 0;
    for (auto _ : state) {
        const std::string_view key = few ? kFewKeys[i % 4] : scatteredKeys()[i % 4096];
        const KindMask kind = key[0] == 'a' ? kAirportKind : key[0] == 'v' ? kVorKind : kFixKind;
        benchmark::DoNotOptimize(places.find(kind, identOfKey(key), row));
        ++i;
    }
}
void SameKeysNg2(benchmark::State& state) { FindKeysNg2(state, true); }
void SameKeysSqlite(benchmark::State& state) { FindKeysSqlite(state, true); }
void ScatteredKeysNg2(benchmark::State& state) { FindKeysNg2(state, false); }
void ScatteredKeysSqlite(benchmark::State& state) { FindKeysSqlite(state, false); }

void BareIdentNg2(benchmark::State& state) {
    Opened opened;
    for (auto _ : state)
        benchmark::DoNotOptimize(opened.database.Find("SEA", busyPoint()));
}
void BareIdentSqlite(benchmark::State& state) {
    SqlitePlaces places(sqliteFile());
    SqlitePlaces::Row row;
    for (auto _ : state)
        benchmark::DoNotOptimize(places.findNearestNamed("SEA", kBusyLat, kBusyLon, row));
}

void AirwayNg2(benchmark::State& state) {
    Opened opened;
    std::vector<std::string> routes;
    for (auto _ : state) {
        opened.database.GetAirwayRoutes("V23", routes);
        benchmark::DoNotOptimize(routes);
    }
}
void AirwaySqlite(benchmark::State& state) {
    SqlitePlaces places(sqliteFile());
    std::vector<std::string> routes;
    for (auto _ : state)
        benchmark::DoNotOptimize(places.airway("V23", routes));
}

void Nearest20Ng2(benchmark::State& state) {
    Opened opened;
    for (auto _ : state)
        benchmark::DoNotOptimize(opened.database.nearest(busyPoint(), kAllKinds, 20, kViewNm));
}
void Nearest20Sqlite(benchmark::State& state) {
    SqlitePlaces places(sqliteFile());
    std::vector<SqlitePlaces::Row> rows;
    for (auto _ : state)
        benchmark::DoNotOptimize(places.nearest(kBusyLat, kBusyLon, 20, 20, rows));
}

void BusyViewNg2(benchmark::State& state) {
    Opened opened;
    std::vector<Place> places;
    for (auto _ : state)
        opened.database.placesIn(busyView(), kAllKinds, 100000, places);
    state.counters["places"] = static_cast<double>(places.size());
}
void BusyViewSqlite(benchmark::State& state) {
    SqlitePlaces sqlite(sqliteFile());
    std::vector<SqlitePlaces::Row> rows;
    for (auto _ : state)
        sqlite.box(busyView(), rows);
    state.counters["places"] = static_cast<double>(rows.size());
}

BENCHMARK(OpenNg2);
BENCHMARK(OpenSqlite);
BENCHMARK(ColdKeyNg2)->Iterations(300);
BENCHMARK(ColdKeySqlite)->Iterations(300);
BENCHMARK(SameKeysNg2);
BENCHMARK(SameKeysSqlite);
BENCHMARK(ScatteredKeysNg2);
BENCHMARK(ScatteredKeysSqlite);
BENCHMARK(BareIdentNg2);
BENCHMARK(BareIdentSqlite);
BENCHMARK(AirwayNg2);
BENCHMARK(AirwaySqlite);
BENCHMARK(Nearest20Ng2);
BENCHMARK(Nearest20Sqlite);
BENCHMARK(BusyViewNg2)->Unit(benchmark::kMicrosecond);
BENCHMARK(BusyViewSqlite)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvel
