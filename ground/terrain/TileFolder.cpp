#include "ground/terrain/TileFolder.h"

#include <algorithm>
#include <system_error>

#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

/// More than the largest tile, packed or not.
constexpr std::size_t kLargestFile = 64U << 20U;

}  // namespace

TileFolder::TileFolder(std::span<const std::filesystem::path> folders, FileSystem& disk)
    : disk_(disk) {
    for (const std::filesystem::path& folder : folders) {
        std::vector<std::filesystem::path> found;
        std::error_code error;
        for (std::filesystem::directory_iterator i(folder, error), end; !error && i != end;
             i.increment(error))
            found.push_back(i->path());
        std::ranges::sort(found);
        for (const std::filesystem::path& file : found)
            if (const auto corner = tileOfName(textOf(file.filename())))
                files_.try_emplace(*corner, file);
    }
}

std::optional<TileFolder::Height> TileFolder::heightAt(GeoPoint point) {
    const auto found = files_.find(tileOf(point));
    if (found == files_.end())
        return std::nullopt;
    const auto metres = tile(found->first)->heightM(point);
    if (!metres)
        return std::nullopt;
    return Height{*metres, textOf(found->second.filename())};
}

const HgtTile* TileFolder::tile(TileCorner corner) {
    const auto known = std::ranges::find(kept_, corner, &HgtTile::corner);
    if (known != kept_.end()) {
        kept_.splice(kept_.begin(), kept_, known);
        return &kept_.front();
    }
    if (kept_.size() >= kKept)
        kept_.pop_back();
    HgtTile& tile = kept_.emplace_front();
    if (std::string error = read(corner, tile); !error.empty()) {
        tile.markEmpty(corner);
        problems_.push_back(std::move(error));
    }
    return &tile;
}

std::set<TileCorner> TileFolder::corners() const {
    std::set<TileCorner> all;
    for (const auto& [corner, file] : files_)
        all.insert(corner);
    return all;
}

std::string TileFolder::read(TileCorner corner, HgtTile& tile) const {
    const std::filesystem::path& file = files_.at(corner);
    const auto bytes = readWholeFile(file, kLargestFile, disk_);
    const std::string error =
        bytes ? tile.read(*bytes, corner) : std::string("The file cannot be read");
    return error.empty() ? error : textOf(file.filename()) + ": " + error;
}

}  // namespace korvel
