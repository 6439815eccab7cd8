#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "ground/basemap/BaseMapLayout.h"
#include "platform/FileSystem.h"

namespace korvel {

/// A ".map" file that is open: its directory is in memory and was checked once; tiles are read as
/// they are asked for. Reading is safe from several threads at once.
class BaseMapFile {
 public:
    /// Opens and checks the directory, all of it. Returns the message, empty on success; after a
    /// failure nothing is open.
    [[nodiscard]] std::string open(const std::filesystem::path& path,
                                   FileSystem& disk = systemFileSystem());
    /// The same with a file that is open already; `name` is for messages.
    [[nodiscard]] std::string open(std::unique_ptr<RandomAccessFile> file, const std::string& name);

    [[nodiscard]] bool isOpen() const { return file_ != nullptr; }
    /// The file's bare name.
    const std::string& name() const { return name_; }
    [[nodiscard]] std::uint64_t size() const { return size_; }
    /// The date of its sources, YYYYMMDD.
    [[nodiscard]] std::uint32_t made() const { return made_; }
    /// Whom the data are owed to: several lines of UTF-8.
    const std::string& attribution() const { return attribution_; }

    [[nodiscard]] std::span<const MapSheet> sheets() const { return sheets_; }
    /// The sheet that suits a map of this detail, else the nearest coarser or finer one; nothing
    /// when the file has none of the kind. Its place in sheets().
    [[nodiscard]] std::optional<std::size_t> sheetFor(SheetKind kind, double metresPerPixel) const;

    [[nodiscard]] BinState state(const MapSheet& sheet, int bin) const;
    /// Where a bin's bytes stand.
    struct Extent {
        std::uint32_t at = 0;
        std::uint32_t size = 0;
    };
    [[nodiscard]] Extent extent(const MapSheet& sheet, int bin) const;
    /// Of cells from the south-west, rows northwards; empty when the file has none.
    [[nodiscard]] Extent reliefTile(int tile) const { return extentIn(reliefIndex_, tile); }
    [[nodiscard]] Extent townCell(int cell) const { return extentIn(townIndex_, cell); }
    [[nodiscard]] bool hasRelief() const { return reliefIndex_ != 0; }
    [[nodiscard]] bool hasTowns() const { return townIndex_ != 0; }

    /// False when they cannot be read.
    [[nodiscard]] bool read(Extent extent, std::vector<std::uint8_t>& bytes) const;

 private:
    std::string readHead();
    std::string readSheets();
    [[nodiscard]] bool isIndex(std::uint32_t at, int entries) const;
    [[nodiscard]] Extent extentIn(std::uint32_t indexAt, int entry) const;
    [[nodiscard]] std::uint32_t word(std::size_t at) const;

    std::unique_ptr<RandomAccessFile> file_;
    std::string name_;
    std::uint64_t size_ = 0;
    std::uint32_t made_ = 0;
    std::uint32_t reliefIndex_ = 0;
    std::uint32_t townIndex_ = 0;
    std::string attribution_;
    std::vector<MapSheet> sheets_;
    std::vector<std::uint8_t> head_;
};

}  // namespace korvel
