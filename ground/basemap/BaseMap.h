#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "geo/GeoPoint.h"
#include "ground/basemap/BaseMapFile.h"
#include "ground/basemap/CoarseRelief.h"
#include "ground/basemap/MapTile.h"
#include "ground/basemap/Towns.h"

namespace korvel {

/// The base map as it is asked: what was decoded last stays in memory, up to a bound. What is
/// damaged in the file is left out and told once. One thread at a time.
class BaseMap {
 public:
    static constexpr std::size_t kCacheBytes = std::size_t{4} << 20U;

    /// Returns the message, empty on success.
    [[nodiscard]] std::string open(const std::filesystem::path& path,
                                   FileSystem& disk = systemFileSystem());
    [[nodiscard]] std::string open(std::unique_ptr<RandomAccessFile> file, const std::string& name);
    const BaseMapFile& file() const { return file_; }
    [[nodiscard]] bool isOpen() const { return file_.isOpen(); }

    /// What a bin of a sheet (its place in the file's sheets) holds; without parts where it is
    /// all land, all sea or damaged. Stays good as long as it is held.
    std::shared_ptr<const MapTile> tile(std::size_t sheet, int bin);
    /// Never null; of sea where it is damaged.
    std::shared_ptr<const ReliefTile> relief(int tile);
    /// The towns of a cell.
    std::shared_ptr<const std::vector<Town>> towns(int cell);

    /// Whether there is land, in a sheet of land; a lake is none. False where the map is damaged.
    bool isLand(std::size_t sheet, GeoPoint point);

    /// What was found damaged since the map was opened, a text each, each once.
    [[nodiscard]] std::span<const std::string> problems() const { return problems_; }
    /// Memory taken by what was decoded.
    [[nodiscard]] std::size_t cachedBytes() const { return cachedBytes_; }

 private:
    struct Cached {
        std::uint64_t key = 0;
        std::shared_ptr<const void> value;
        std::size_t bytes = 0;
    };
    using Used = std::list<Cached>;

    template <class Value, class Decode>
    std::shared_ptr<const Value> get(std::uint64_t key, BaseMapFile::Extent extent, Decode decode);
    void noteDamage(BaseMapFile::Extent extent);
    void keep(Cached cached);

    BaseMapFile file_;
    Used used_;  ///< the latest first
    std::unordered_map<std::uint64_t, Used::iterator> known_;
    std::size_t cachedBytes_ = 0;
    std::vector<std::uint8_t> bytes_;  ///< kept for its memory
    std::vector<std::string> problems_;
};

}  // namespace korvel
