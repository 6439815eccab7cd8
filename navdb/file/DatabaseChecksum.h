#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvel {

/// The running sum over a file's bytes that an ".ng2" header carries: every byte is folded with a
/// 16-bit key that depends on all the bytes before it, and the folded bytes are added up.
class DatabaseChecksum {
 public:
    void add(std::span<const std::uint8_t> bytes);
    [[nodiscard]] std::uint32_t value() const { return sum_; }

 private:
    std::uint32_t key_ = 55665;
    std::uint32_t sum_ = 0;
};

/// The header checksum: over the header's bytes 14 to 49 and the size of the file as four bytes.
/// `header` holds at least 50 bytes.
std::uint32_t headerChecksum(std::span<const std::uint8_t> header, std::uint32_t fileSize);

}  // namespace korvel
