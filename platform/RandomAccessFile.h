#pragma once

#include <cstddef>
#include <cstdint>
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

}  // namespace korvel
