#include "ground/basemap/BaseMapWriter.h"

#include <zlib.h>

#include "ground/basemap/ByteCursor.h"

namespace korvel {
namespace {

void storeWord(std::string& bytes, std::size_t at, std::size_t value) {
    std::string word;
    appendWord32(word, static_cast<std::uint32_t>(value));
    bytes.replace(at, word.size(), word);
}

std::size_t indexBytes(std::size_t entries) { return entries == 0 ? 0 : 4 * (entries + 1); }

/// Appends the tiles to `body` and their index to `head`.
void append(std::string& head, std::string& body, std::size_t headSize,
            const std::vector<std::string>& tiles, const std::vector<BinState>& states) {
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const auto state = static_cast<std::uint32_t>(i < states.size() ? states[i] : BinState{});
        appendWord32(head,
                     static_cast<std::uint32_t>(headSize + body.size()) | state << kBinStateShift);
        body += tiles[i];
    }
    appendWord32(head, static_cast<std::uint32_t>(headSize + body.size()));
}

}  // namespace

void BaseMapWriter::addSheet(const MapSheet& sheet, std::vector<BinState> states,
                             std::vector<std::string> tiles) {
    sheets_.push_back({sheet, std::move(states), std::move(tiles)});
}

std::string BaseMapWriter::bytes() const {
    std::string head(kMapMagic);
    head.resize(kMapHeaderSize);
    storeWord(head, kMapAttributionAt, head.size());
    storeWord(head, kMapAttributionSizeAt, attribution_.size());
    head += attribution_;
    storeWord(head, kMapSheetsAt, head.size());
    storeWord(head, kMapSheetCountAt, sheets_.size());
    std::size_t indexAt = head.size() + sheets_.size() * kSheetRowSize;
    for (const Written& each : sheets_) {
        const MapSheet& sheet = each.sheet;
        for (const std::uint32_t value :
             {static_cast<std::uint32_t>(sheet.kind), static_cast<std::uint32_t>(sheet.binDegrees),
              static_cast<std::uint32_t>(sheet.stepsPerDegree), sheet.toleranceM,
              sheet.metresPerPixelFrom, sheet.metresPerPixelTo,
              static_cast<std::uint32_t>(indexAt)})
            appendWord32(head, value);
        indexAt += indexBytes(each.tiles.size());
    }
    const std::size_t headSize = indexAt + indexBytes(relief_.size()) + indexBytes(towns_.size());
    std::string body;
    for (const Written& each : sheets_)
        append(head, body, headSize, each.tiles, each.states);
    if (!relief_.empty()) {
        storeWord(head, kMapReliefIndexAt, head.size());
        append(head, body, headSize, relief_, {});
    }
    if (!towns_.empty()) {
        storeWord(head, kMapTownIndexAt, head.size());
        append(head, body, headSize, towns_, {});
    }
    storeWord(head, kMapVersionAt, kMapVersion);
    storeWord(head, kMapMadeAt, made_);
    storeWord(head, kMapFileSizeAt, headSize + body.size());
    storeWord(head, kMapHeadSizeAt, headSize);
    const std::vector<unsigned char> checked(head.begin(), head.end());
    storeWord(head, kMapChecksumAt,
              crc32(crc32(0, nullptr, 0), checked.data(), static_cast<uInt>(checked.size())));
    return head + body;
}

}  // namespace korvel
