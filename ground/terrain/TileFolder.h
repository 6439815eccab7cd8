#pragma once

#include <filesystem>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "ground/terrain/HgtTile.h"
#include "platform/FileSystem.h"

namespace korvel {

/// The tiles of heights in some folders, read when they are asked for; the last few stay in memory.
/// One thread at a time, and not the user interface's: a packed tile takes tens of milliseconds.
class TileFolder {
 public:
    /// Tiles kept: some 26 MB each at one arc second.
    static constexpr std::size_t kKept = 2;

    /// The first folder that holds a tile wins. Their lists of files are read once.
    explicit TileFolder(std::span<const std::filesystem::path> folders,
                        FileSystem& disk = systemFileSystem());

    struct Height {
        double metres = 0;
        std::string file;  ///< the bare name of the tile's
    };
    /// Bilinear between the posts; nothing without a tile, or where one of the posts is not known.
    std::optional<Height> heightAt(GeoPoint point);
    /// Whether there is a tile for the point, be it damaged.
    bool hasTile(GeoPoint point) const { return files_.contains(tileOf(point)); }

    /// Of all tiles.
    [[nodiscard]] std::set<TileCorner> corners() const;
    /// Reads a tile that is there anew and does not keep it. Returns the message, with the file's
    /// name; empty on success.
    [[nodiscard]] std::string read(TileCorner corner, HgtTile& tile) const;

    /// What could not be read since the last call, a text each.
    std::vector<std::string> takeProblems() { return std::exchange(problems_, {}); }

 private:
    const HgtTile* tile(TileCorner corner);

    FileSystem& disk_;
    std::map<TileCorner, std::filesystem::path> files_;
    std::list<HgtTile> kept_;  ///< the latest first; a damaged one is empty
    std::vector<std::string> problems_;
};

}  // namespace korvel
