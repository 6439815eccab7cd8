#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>

namespace korvel {

// Integers in file bytes. The caller has made sure that four bytes are there.

inline std::uint32_t loadU32(std::span<const std::uint8_t> bytes, std::size_t offset) {
    assert(offset + 4 <= bytes.size());
    return static_cast<std::uint32_t>(bytes[offset]) |
           static_cast<std::uint32_t>(bytes[offset + 1]) << 8U |
           static_cast<std::uint32_t>(bytes[offset + 2]) << 16U |
           static_cast<std::uint32_t>(bytes[offset + 3]) << 24U;
}

inline std::int32_t loadI32(std::span<const std::uint8_t> bytes, std::size_t offset) {
    return static_cast<std::int32_t>(loadU32(bytes, offset));
}

inline void storeU32(std::span<std::uint8_t> bytes, std::size_t offset, std::uint32_t value) {
    assert(offset + 4 <= bytes.size());
    for (std::size_t i = 0; i < 4; ++i)
        bytes[offset + i] = static_cast<std::uint8_t>(value >> (8U * i));
}

}  // namespace korvel
