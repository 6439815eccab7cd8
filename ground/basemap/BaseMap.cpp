#include "ground/basemap/BaseMap.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/Geodesy.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

// Of the cache's keys; sheets count from 0.
constexpr std::uint64_t kReliefKey = 1000;
constexpr std::uint64_t kTownKey = 1001;
constexpr unsigned kKindShift = 32;
/// More is no list of problems any more.
constexpr std::size_t kMostProblems = 100;

std::size_t bytesOf(const MapTile& tile) { return tile.bytes(); }
std::size_t bytesOf(const ReliefTile& tile) { return tile.size() * sizeof(tile[0]); }
std::size_t bytesOf(const std::vector<Town>& towns) {
    return sizeof(towns) + towns.capacity() * sizeof(Town);
}

/// Whether the point lies in an odd number of the tile's rings.
bool isInside(const MapTile& tile, double x, double y) {
    bool inside = false;
    for (std::size_t i = 0; i < tile.parts(); ++i) {
        const auto ring = tile.part(i);
        LatticePoint from = ring.back();
        for (const LatticePoint to : ring) {
            if ((from.y > y) != (to.y > y)) {
                const double share = (y - from.y) / (to.y - from.y);
                if (x < from.x + share * (to.x - from.x))
                    inside = !inside;
            }
            from = to;
        }
    }
    return inside;
}

}  // namespace

std::string BaseMap::open(const std::filesystem::path& path, FileSystem& disk) {
    return open(disk.openRandomAccess(path), textOf(path.filename()));
}

std::string BaseMap::open(std::unique_ptr<RandomAccessFile> file, const std::string& name) {
    used_.clear();
    known_.clear();
    cachedBytes_ = 0;
    problems_.clear();
    return file_.open(std::move(file), name);
}

std::shared_ptr<const MapTile> BaseMap::tile(std::size_t sheet, int bin) {
    const MapSheet& row = file_.sheets()[sheet];
    return get<MapTile>(
        static_cast<std::uint64_t>(sheet) << kKindShift | static_cast<std::uint64_t>(bin),
        file_.extent(row, bin), [&](MapTile& tile) {
            return bytes_.empty() ||
                   decodeTile(bytes_, row.kind == SheetKind::Land, row.steps(), tile);
        });
}

std::shared_ptr<const ReliefTile> BaseMap::relief(int tile) {
    return get<ReliefTile>(
        kReliefKey << kKindShift | static_cast<std::uint64_t>(tile), file_.reliefTile(tile),
        [&](ReliefTile& heights) { return decodeRelief(bytes_, heights); });
}

std::shared_ptr<const std::vector<Town>> BaseMap::towns(int cell) {
    return get<std::vector<Town>>(
        kTownKey << kKindShift | static_cast<std::uint64_t>(cell), file_.townCell(cell),
        [&](std::vector<Town>& towns) { return decodeTowns(bytes_, cell, towns); });
}

template <class Value, class Decode>
std::shared_ptr<const Value> BaseMap::get(std::uint64_t key, BaseMapFile::Extent extent,
                                          Decode decode) {
    if (const auto found = known_.find(key); found != known_.end()) {
        used_.splice(used_.begin(), used_, found->second);
        return std::static_pointer_cast<const Value>(found->second->value);
    }
    auto value = std::make_shared<Value>();
    if (!(file_.read(extent, bytes_) && decode(*value)))
        noteDamage(extent);
    keep({key, value, bytesOf(*value)});
    return value;
}

/// A tile may be read again when it has left the cache.
void BaseMap::noteDamage(BaseMapFile::Extent extent) {
    std::string problem = file_.name() + ": the tile at byte " + std::to_string(extent.at) +
                          " is damaged and left out";
    if (problems_.size() < kMostProblems &&
        std::ranges::find(problems_, problem) == problems_.end())
        problems_.push_back(std::move(problem));
}

void BaseMap::keep(Cached cached) {
    cachedBytes_ += cached.bytes;
    used_.push_front(std::move(cached));
    known_[used_.front().key] = used_.begin();
    while (cachedBytes_ > kCacheBytes && used_.size() > 1) {
        cachedBytes_ -= used_.back().bytes;
        known_.erase(used_.back().key);
        used_.pop_back();
    }
}

bool BaseMap::isLand(std::size_t sheet, GeoPoint point) {
    const MapSheet& row = file_.sheets()[sheet];
    const double north = point.lat * kRadToDeg + 90;
    const double east = PositiveMod(point.lon * kRadToDeg + 180, 360);
    const int line = std::clamp(static_cast<int>(north / row.binDegrees), 0, row.rows() - 1);
    const int column = std::clamp(static_cast<int>(east / row.binDegrees), 0, row.columns() - 1);
    const int bin = line * row.columns() + column;
    if (const BinState state = file_.state(row, bin); state != BinState::Mixed)
        return state == BinState::Land;
    return isInside(*tile(sheet, bin), (east - column * row.binDegrees) * row.stepsPerDegree,
                    (north - line * row.binDegrees) * row.stepsPerDegree);
}

}  // namespace korvel
