#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/RandomAccessFile.h"

namespace korvel {

/// Bytes of a test as a file that is open.
class MemoryFile final : public RandomAccessFile {
 public:
    explicit MemoryFile(std::string bytes) : bytes_(std::move(bytes)) {}

    std::uint64_t size() const override { return bytes_.size(); }
    std::size_t readAt(std::uint64_t offset, std::span<std::uint8_t> room) const override {
        if (offset >= bytes_.size()) return 0;
        const std::size_t count = std::min<std::size_t>(room.size(), bytes_.size() - offset);
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(offset), count, room.begin());
        return count;
    }

 private:
    std::string bytes_;
};

}  // namespace korvel
