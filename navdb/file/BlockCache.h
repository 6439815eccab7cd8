#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/RandomAccessFile.h"

namespace korvel {

/// A file's most recently used blocks, 1 MiB at most: a search in an index touches the same few
/// blocks again and again. What the file no longer holds (it was cut while it was open) reads as
/// absent. Not thread-safe.
class BlockCache {
 public:
    static constexpr std::size_t kBlockSize = 4096;

    explicit BlockCache(std::unique_ptr<RandomAccessFile> file) : file_(std::move(file)) {}

    /// Bytes from `offset` to the end of their block; empty at the end of the file. Valid until
    /// the next call of any member.
    std::span<const std::uint8_t> from(std::uint64_t offset) {
        const Slot& slot = slotOf(offset / kBlockSize);
        const std::size_t inBlock = offset % kBlockSize;
        return inBlock < slot.filled
                   ? std::span(*slot.bytes).subspan(inBlock, slot.filled - inBlock)
                   : std::span<const std::uint8_t>{};
    }

    /// Fills `room`; false when the file ends before.
    bool read(std::uint64_t offset, std::span<std::uint8_t> room);

    /// Reads a four-byte integer; false when the file ends before.
    bool readWord(std::uint64_t offset, std::uint32_t& word);

    /// The text that begins at `offset`: bytes up to the first 0, at most kMaxTextLength of them,
    /// each reduced to seven bits.
    void readText(std::uint64_t offset, std::string& text);

    /// Less than, equal to or greater than 0 as that text is below, equal to or above `key` in
    /// byte order.
    int compareText(std::uint64_t offset, std::string_view key);

 private:
    static constexpr std::size_t kSets = 64;
    static constexpr std::size_t kWays = 4;

    struct Slot {
        std::uint64_t block = UINT64_MAX;
        std::uint64_t lastUse = 0;
        std::size_t filled = 0;
        std::unique_ptr<std::array<std::uint8_t, kBlockSize>> bytes;  ///< null before its first use
    };

    Slot& slotOf(std::uint64_t block) {
        auto& set = sets_[block % kSets];
        for (Slot& slot : set) {
            if (slot.block == block) {
                slot.lastUse = ++useCount_;
                return slot;
            }
        }
        return load(set, block);
    }
    Slot& load(std::array<Slot, kWays>& set, std::uint64_t block);

    std::unique_ptr<RandomAccessFile> file_;
    std::array<std::array<Slot, kWays>, kSets> sets_;
    std::uint64_t useCount_ = 0;
};

}  // namespace korvel
