#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace korvel {

/// Numbers of a growing size, seven bits a byte, the lowest first; signed ones fold their sign into
/// the lowest bit. Reading past the end, or a number longer than 32 bits, ends it for good.
class ByteCursor {
 public:
    explicit ByteCursor(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    /// Nothing of what was read since it became false counts.
    [[nodiscard]] bool ok() const { return ok_; }
    [[nodiscard]] bool atEnd() const { return at_ == bytes_.size(); }
    [[nodiscard]] std::size_t left() const { return bytes_.size() - at_; }

    std::uint8_t byte() {
        if (at_ >= bytes_.size()) {
            ok_ = false;
            return 0;
        }
        return bytes_[at_++];
    }
    std::uint32_t number() {
        std::uint32_t value = byte();
        if (value < 0x80U)
            return value;
        value &= 0x7FU;
        for (unsigned shift = 7; shift <= 28; shift += 7) {
            const std::uint32_t next = byte();
            value |= (next & 0x7FU) << shift;
            if (next < 0x80U)
                return value;
        }
        ok_ = false;
        return 0;
    }
    std::int32_t difference() {
        const std::uint32_t folded = number();
        return static_cast<std::int32_t>(folded >> 1U) ^ -static_cast<std::int32_t>(folded & 1U);
    }
    std::uint32_t word16() {
        const std::uint32_t low = byte();
        return low | static_cast<std::uint32_t>(byte()) << 8U;
    }
    std::span<const std::uint8_t> take(std::size_t count) {
        if (count > left()) {
            ok_ = false;
            return {};
        }
        at_ += count;
        return bytes_.subspan(at_ - count, count);
    }

 private:
    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0;
    bool ok_ = true;
};

// The other way.

inline void appendByte(std::string& bytes, std::uint32_t value) {
    bytes += static_cast<char>(static_cast<unsigned char>(value & 0xFFU));
}
inline void appendNumber(std::string& bytes, std::uint32_t value) {
    for (; value >= 0x80U; value >>= 7U)
        appendByte(bytes, value | 0x80U);
    appendByte(bytes, value);
}
inline void appendDifference(std::string& bytes, std::int32_t value) {
    appendNumber(
        bytes, (static_cast<std::uint32_t>(value) << 1U) ^ static_cast<std::uint32_t>(value >> 31));
}
inline void appendWord16(std::string& bytes, std::uint32_t value) {
    appendByte(bytes, value);
    appendByte(bytes, value >> 8U);
}
inline void appendWord32(std::string& bytes, std::uint32_t value) {
    appendWord16(bytes, value);
    appendWord16(bytes, value >> 16U);
}

}  // namespace korvel
