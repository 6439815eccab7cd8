#include "ground/terrain/TerrainStore.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "ground/terrain/TileFolder.h"
#include "platform/Threading.h"

namespace korvel {
namespace {

constexpr double kNmPerDegree = 60;
constexpr std::chrono::milliseconds kLookAgain{1000};

/// What lies around a point, degrees; west and east may lie beyond 180.
struct DegreeBox {
    DegreeBox(GeoPoint point, double withinNm) {
        constexpr double kNarrowest = 0.02;  // towards the poles
        const double lat = point.lat * kRadToDeg;
        const double lon = point.lon * kRadToDeg;
        const double up = withinNm / kNmPerDegree;
        const double across = up / std::max(std::cos(point.lat), kNarrowest);
        south = lat - up;
        north = lat + up;
        west = lon - across;
        east = lon + across;
    }

    double south;
    double west;
    double north;
    double east;
};

}  // namespace

TerrainStore::~TerrainStore() {
    ends_ = true;
    if (work_)
        work_.set();
    if (thread_.joinable())
        thread_.join();
}

void TerrainStore::open(std::vector<std::filesystem::path> folders) {
    {
        const auto shared = state_.lock();
        shared->newFolders = std::move(folders);
        shared->idle = false;
    }
    if (!thread_.joinable()) {
        work_ = systemThreading().makeEvent(Event::Reset::Auto);
        settled_ = systemThreading().makeEvent(Event::Reset::Auto);
        if (work_ && settled_)
            thread_ = systemThreading().startThread([this] { run(); });
        if (!thread_.joinable())
            state_.lock()->idle = true;
    }
    if (work_)
        work_.set();
}

void TerrainStore::want(Purpose purpose, std::vector<TileCorner> corners, double metres) {
    if (!thread_.joinable())
        return;
    {
        const auto shared = state_.lock();
        Want& want = shared->wants.at(static_cast<std::size_t>(purpose));
        Want wanted{std::move(corners), metres};
        if (want == wanted)
            return;
        want = std::move(wanted);
        shared->idle = false;
    }
    work_.set();
}

TerrainStore::Tile TerrainStore::tile(TileCorner corner) const {
    const auto shared = state_.lock();
    if (const auto found = shared->loaded.find(corner); found != shared->loaded.end())
        return {State::Loaded, found->second};
    return {shared->there.contains(corner) ? State::Awaited : State::None, nullptr};
}

std::vector<TileCorner> TerrainStore::around(GeoPoint point, double withinNm) {
    const DegreeBox box(point, withinNm);
    return tilesIn(box.south, box.west, box.north, box.east);
}

std::optional<double> TerrainStore::highestFt(GeoPoint point, double withinNm) const {
    const DegreeBox box(point, withinNm);
    std::optional<float> highest;
    for (const TileCorner corner : around(point, withinNm)) {
        const auto heights = tile(corner).heights;
        if (!heights)
            continue;
        const double turn = std::round((corner.west - box.west) / 360) * 360;
        const auto here =
            heights->highestIn(box.south, box.west + turn, box.north, box.east + turn, 0);
        if (here && (!highest || *here > *highest))
            highest = here;
    }
    return highest ? std::optional(*highest * kFeetPerMetre) : std::nullopt;
}

std::optional<double> TerrainStore::heightFt(GeoPoint point) const {
    const TileCorner corner = tileOf(point);
    const auto heights = tile(corner).heights;
    if (!heights)
        return std::nullopt;
    const double lon = corner.west + PositiveMod(point.lon * kRadToDeg - corner.west, 360);
    const HeightPyramid::Height height = heights->heightAt(lon, point.lat * kRadToDeg, 0);
    return height.known ? std::optional(height.mean * kFeetPerMetre) : std::nullopt;
}

bool TerrainStore::isSettled() const { return state_.lock()->idle; }

void TerrainStore::waitUntilSettled() {
    while (!isSettled())
        settled_.wait(kLookAgain);
}

std::vector<std::string> TerrainStore::problems() const { return state_.lock()->problems; }

/// The thread: one tile after the other, and between two it looks what is wanted by then.
void TerrainStore::run() {
    std::unique_ptr<TileFolder> folder;
    while (!ends_) {
        std::optional<std::vector<std::filesystem::path>> folders;
        std::optional<Job> job;
        {
            const auto shared = state_.lock();
            folders = std::exchange(shared->newFolders, std::nullopt);
            if (!folders)
                job = nextJob(*shared);
            shared->idle = !folders && !job;
        }
        if (folders) {
            folder = std::make_unique<TileFolder>(*folders);
            const auto shared = state_.lock();
            shared->there = folder->corners();
            shared->loaded.clear();
            shared->bytes = 0;
            shared->problems.clear();
            ++revision_;
        } else if (job) {
            HgtTile tile;
            const std::string error = folder->read(job->corner, tile);
            std::shared_ptr<const HeightPyramid> heights;
            if (error.empty())
                heights = std::make_shared<HeightPyramid>(tile, job->metres);
            const auto shared = state_.lock();
            if (heights) {
                auto& place = shared->loaded[job->corner];
                shared->bytes -= place ? place->bytes() : 0;
                shared->bytes += heights->bytes();
                place = std::move(heights);
                makeRoom(*shared, job->corner);
            } else {
                shared->there.erase(job->corner);
                shared->problems.push_back(error);
            }
            ++revision_;
        } else {
            settled_.set();
            work_.wait(Event::kInfinite);
        }
    }
}

/// Each tile as fine as its purposes want it; coarser where all together would not fit.
std::map<TileCorner, double> TerrainStore::wantedTiles(const Shared& shared) {
    constexpr double kCoarsest = 4000;
    std::map<TileCorner, double> tiles;
    double atLeast = 0;
    for (;;) {
        tiles.clear();
        for (const Want& want : shared.wants)
            for (const TileCorner corner : want.corners)
                if (shared.there.contains(corner)) {
                    const double metres = std::max(want.metres, atLeast);
                    const auto [place, added] = tiles.try_emplace(corner, metres);
                    place->second = std::min(place->second, metres);
                }
        std::size_t bytes = 0;
        for (const auto& [corner, metres] : tiles)
            bytes += HeightPyramid::mostBytes(metres);
        atLeast = std::max(2 * atLeast, 30.0);
        if (bytes <= kMostBytes || atLeast >= kCoarsest)
            return tiles;
    }
}

/// The first tile that is wanted and not there, or too coarse.
std::optional<TerrainStore::Job> TerrainStore::nextJob(Shared& shared) {
    const std::map<TileCorner, double> tiles = wantedTiles(shared);
    for (const Want& want : shared.wants) {
        for (const TileCorner corner : want.corners) {
            const auto tile = tiles.find(corner);
            if (tile == tiles.end())
                continue;
            const auto there = shared.loaded.find(corner);
            if (there == shared.loaded.end() || !there->second->isFineEnough(tile->second))
                return Job{corner, tile->second};
        }
    }
    return std::nullopt;
}

/// What nobody wants goes first, then what is finer than wanted.
void TerrainStore::makeRoom(Shared& shared, TileCorner newest) {
    const std::map<TileCorner, double> wanted = wantedTiles(shared);
    const auto drop = [&](auto mayGo) {
        for (auto i = shared.loaded.begin();
             i != shared.loaded.end() && shared.bytes > kMostBytes;) {
            if (i->first == newest || !mayGo(i->first, *i->second)) {
                ++i;
                continue;
            }
            shared.bytes -= i->second->bytes();
            i = shared.loaded.erase(i);
        }
    };
    drop([&](TileCorner corner, const HeightPyramid&) { return !wanted.contains(corner); });
    drop([&](TileCorner corner, const HeightPyramid& heights) {
        return heights.bytes() > HeightPyramid::mostBytes(wanted.at(corner));
    });
}

}  // namespace korvel
