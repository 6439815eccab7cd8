#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace korvel {

/// A file that is open for reading at any position; others may go on reading and writing it.
/// Reading is safe from several threads at once.
class RandomAccessFile {
 public:
    RandomAccessFile() = default;
    virtual ~RandomAccessFile() = default;
    RandomAccessFile(const RandomAccessFile&) = delete;
    RandomAccessFile& operator=(const RandomAccessFile&) = delete;

    /// The size at the time of the call, 0 when it cannot be told.
    [[nodiscard]] virtual std::uint64_t size() const = 0;

    /// Fills the front of `room` with what stands from `offset` on and returns how many bytes
    /// that were: fewer than asked for at the end of the file or when reading fails.
    [[nodiscard]] virtual std::size_t readAt(std::uint64_t offset,
                                             std::span<std::uint8_t> room) const = 0;
};

/// Null when there is no such regular file or it cannot be opened.
std::unique_ptr<RandomAccessFile> openRandomAccessFile(const std::filesystem::path& path);

/// Replaces bytes inside an existing file; nothing else in it changes. False when it cannot be
/// opened for writing or not all bytes were written.
[[nodiscard]] bool overwriteInFile(const std::filesystem::path& path, std::uint64_t offset,
                                   std::span<const std::uint8_t> bytes);

}  // namespace korvel
