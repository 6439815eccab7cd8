#include "navdb/file/BlockCache.h"

#include <algorithm>
#include <iterator>

#include "navdb/file/DatabaseLayout.h"
#include "navdb/file/LittleEndian.h"

namespace korvel {

BlockCache::Slot& BlockCache::load(std::array<Slot, kWays>& set, std::uint64_t block) {
    Slot& slot = *std::min_element(
        set.begin(), set.end(), [](const Slot& a, const Slot& b) { return a.lastUse < b.lastUse; });
    slot.block = block;
    slot.lastUse = ++useCount_;
    if (!slot.bytes)
        slot.bytes = std::make_unique_for_overwrite<std::array<std::uint8_t, kBlockSize>>();
    slot.filled = file_->readAt(block * kBlockSize, *slot.bytes);
    return slot;
}

bool BlockCache::read(std::uint64_t offset, std::span<std::uint8_t> room) {
    while (!room.empty()) {
        const auto piece = from(offset);
        if (piece.empty())
            return false;
        const std::size_t count = std::min(piece.size(), room.size());
        std::copy_n(piece.begin(), count, room.begin());
        room = room.subspan(count);
        offset += count;
    }
    return true;
}

bool BlockCache::readWord(std::uint64_t offset, std::uint32_t& word) {
    std::array<std::uint8_t, 4> copy{};
    auto bytes = from(offset);
    if (bytes.size() < 4) {
        if (!read(offset, copy))
            return false;
        bytes = copy;
    }
    word = loadU32(bytes, 0);
    return true;
}

void BlockCache::readText(std::uint64_t offset, std::string& text) {
    text.clear();
    while (text.size() < kMaxTextLength) {
        auto piece = from(offset + text.size());
        piece = piece.first(std::min(piece.size(), kMaxTextLength - text.size()));
        const auto end = std::find(piece.begin(), piece.end(), std::uint8_t{0});
        std::transform(piece.begin(), end, std::back_inserter(text),
                       [](std::uint8_t byte) { return static_cast<char>(byte & kTextMask); });
        if (end != piece.end() || piece.empty())
            return;
    }
}

int BlockCache::compareText(std::uint64_t offset, std::string_view key) {
    std::size_t at = 0;
    while (at < kMaxTextLength) {
        const auto piece = from(offset + at);
        const std::size_t count = std::min(piece.size(), kMaxTextLength - at);
        for (std::size_t i = 0; i < count; ++i, ++at) {
            if (piece[i] == 0)
                return at == key.size() ? 0 : -1;
            if (at == key.size())
                return 1;
            const int difference = (piece[i] & kTextMask) - static_cast<unsigned char>(key[at]);
            if (difference != 0)
                return difference;
        }
        if (count == 0)
            break;
    }
    return at == key.size() ? 0 : -1;
}

}  // namespace korvel
