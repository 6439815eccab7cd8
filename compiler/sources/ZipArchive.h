#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "compiler/sources/LineReader.h"
#include "platform/RandomAccessFile.h"

namespace korvel {

/// What lies in a zip file. Entries are unpacked as they are read, so that a table of hundreds of
/// megabytes needs no room; what does not unpack to the size and the checksum that its directory
/// tells fails at its end, and no more than that size is ever unpacked.
class ZipArchive {
 public:
    /// More entries than any download has, and larger ones.
    static constexpr std::size_t kMostEntries = 4096;
    static constexpr std::uint64_t kLargestEntry = std::uint64_t{1} << 30;

    struct Entry {
        std::string name;  ///< with its folders, '/' between them
        std::uint64_t size = 0;
        std::uint64_t packedSize = 0;
        std::uint64_t headerAt = 0;
        std::uint32_t checksum = 0;
        bool isDeflated = false;
    };

    /// Null when it is no zip file, its directory is damaged, or holds more than the limits.
    static std::unique_ptr<ZipArchive> open(std::shared_ptr<const RandomAccessFile> file);

    /// What can be read: neither folders nor what is encrypted or packed in another way.
    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
    /// Null when the entry is not where the directory says. It may outlive the archive.
    [[nodiscard]] std::unique_ptr<ByteSource> read(const Entry& entry) const;
    /// The whole entry; nothing when it is damaged or larger than `limit`.
    [[nodiscard]] std::optional<std::string> readWhole(const Entry& entry,
                                                       std::uint64_t limit) const;

 private:
    explicit ZipArchive(std::shared_ptr<const RandomAccessFile> file) : file_(std::move(file)) {}
    bool readDirectory();

    std::shared_ptr<const RandomAccessFile> file_;
    std::vector<Entry> entries_;
};

/// Bytes in memory as a file.
std::shared_ptr<const RandomAccessFile> fileInMemory(std::string bytes);

}  // namespace korvel
