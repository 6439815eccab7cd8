#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Guarded.h"
#include "navdb/file/DatabaseDirectory.h"
#include "navdb/file/RowReader.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"

namespace korvel {

/// The first 64 bytes of a file.
struct DatabaseHeader {
    std::string version;  ///< "NavDb4.7"
    double versionNumber = 0.0;
    std::uint32_t fullChecksum = 0;
    std::uint32_t region = 0;  ///< low byte: the region letter
    std::uint32_t tableDirectory = 0;
    std::uint32_t indexDirectory = 0;
    std::uint32_t stringArea = 0;
    std::uint32_t expiry = 0;  ///< YYYYMMDD, 0 for none
    double southernCoverageDeg = 0.0;
    double northernCoverageDeg = 0.0;
    std::uint32_t dataCycle = 0;  ///< YYCC, 0 for unknown
    std::uint32_t areaGrid = 0;
    std::uint32_t headerChecksum = 0;
};

/// An ".ng2" file: opened once, its directories and area grid kept in memory, its rows read from
/// disk when they are asked for. After Open() everything but rows() is read-only.
class DatabaseFile {
 public:
    /// Gets percentages, 100 last. False breaks the opening off.
    using Progress = std::function<bool(int percent)>;

    /// Checks the file and reads its directories. Empty on success; else "File Open Error",
    /// "Invalid Format", "Incorrect Format", "Incorrect Format...Update!", "Corrupted file", or
    /// "Aborting" when it was broken off, and then nothing of the file is kept. The first
    /// successful check of the whole file is marked in the file, so that later ones need the header
    /// only. Call once; `disk` must outlive this.
    [[nodiscard]] std::string Open(const std::filesystem::path& path, const Clock& clock,
                                   const Progress& progress = {},
                                   FileSystem& disk = systemFileSystem());

    [[nodiscard]] const DatabaseHeader& header() const { return header_; }
    [[nodiscard]] char regionLetter() const { return static_cast<char>(header_.region & 0xFFU); }
    /// Whether the data were out of date when the file was opened: without an expiry date they
    /// are, with one only those of region 'K' ever are.
    [[nodiscard]] bool isExpired() const { return expired_; }
    /// Whether their date had passed by then, or they have none, in any region.
    [[nodiscard]] bool isPastDate() const { return pastDate_; }
    [[nodiscard]] std::uint64_t size() const { return size_; }
    /// Shared with the records that come from here.
    [[nodiscard]] const std::shared_ptr<const std::string>& fileName() const { return fileName_; }

    [[nodiscard]] const DatabaseDirectory& directory() const { return directory_; }
    /// Null when the file has no index of that name.
    [[nodiscard]] const IndexEntry* index(std::string_view name) const {
        return directory_.index(packName(name));
    }

    /// Cells that the area grid covers, and its words: one for each and one behind the last.
    /// Without a grid there are no words.
    [[nodiscard]] int firstCell() const { return firstCell_; }
    [[nodiscard]] const std::vector<std::uint32_t>& gridWords() const { return gridWords_; }

    /// The rows, under the file's lock for as long as the handle lives: keep it for one look-up,
    /// never take two at a time. May be called from any thread.
    [[nodiscard]] Guarded<RowReader>::Handle<RowReader> rows() const { return rows_.lock(); }

 private:
    [[nodiscard]] std::string_view readFrom(const std::filesystem::path& path,
                                            const RandomAccessFile& file, const Progress& progress,
                                            FileSystem& disk);
    [[nodiscard]] bool readAreaGrid(const RandomAccessFile& file);

    DatabaseHeader header_;
    std::uint64_t size_ = 0;
    bool expired_ = true;
    bool pastDate_ = true;
    std::shared_ptr<const std::string> fileName_;
    DatabaseDirectory directory_;
    int firstCell_ = 0;
    std::vector<std::uint32_t> gridWords_;
    mutable Guarded<RowReader> rows_;
};

/// Whether data with this expiry date (YYYYMMDD or 0) and region letter are out of date: a day
/// of 24 hours after local midnight at the start of that date, also where clocks change on it.
bool isOutOfDate(std::uint32_t expiry, char region, const Clock& clock);
/// The same for data of a region whose date counts.
bool isPastDate(std::uint32_t expiry, const Clock& clock);

}  // namespace korvel
