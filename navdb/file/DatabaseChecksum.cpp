#include "navdb/file/DatabaseChecksum.h"

#include <array>

#include "navdb/file/DatabaseLayout.h"
#include "navdb/file/LittleEndian.h"

namespace korvel {

void DatabaseChecksum::add(std::span<const std::uint8_t> bytes) {
    std::uint32_t key = key_;
    std::uint32_t sum = sum_;
    for (const std::uint8_t byte : bytes) {
        const std::uint32_t folded = byte ^ (key >> 8U);
        key = ((folded + key) * 52845U + 22719U) & 0xFFFFU;
        sum += folded;
    }
    key_ = key;
    sum_ = sum;
}

std::uint32_t headerChecksum(std::span<const std::uint8_t> header, std::uint32_t fileSize) {
    DatabaseChecksum checksum;
    checksum.add(header.subspan(kRegionOffset, kHeaderChecksumOffset - kRegionOffset));
    std::array<std::uint8_t, 4> size{};
    storeU32(size, 0, fileSize);
    checksum.add(size);
    return checksum.value();
}

}  // namespace korvel
