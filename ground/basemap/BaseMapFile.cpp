#include "ground/basemap/BaseMapFile.h"

#include <algorithm>
#include <zlib.h>

#include "platform/PathText.h"

namespace korvel {
namespace {

/// More directory than any map has: a damaged size must not take the memory.
constexpr std::uint32_t kLargestHead = 16U << 20U;

std::uint32_t wordAt(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::uint32_t>(bytes[at]) | static_cast<std::uint32_t>(bytes[at + 1]) << 8U |
           static_cast<std::uint32_t>(bytes[at + 2]) << 16U |
           static_cast<std::uint32_t>(bytes[at + 3]) << 24U;
}

std::uint32_t checksumOf(std::vector<std::uint8_t> head) {
    std::fill_n(head.begin() + kMapChecksumAt, 4, std::uint8_t{0});
    return static_cast<std::uint32_t>(
        crc32(crc32(0, nullptr, 0), head.data(), static_cast<uInt>(head.size())));
}

bool isSheet(const MapSheet& sheet) {
    const bool known = sheet.kind == SheetKind::Land || sheet.kind == SheetKind::Rivers ||
                       sheet.kind == SheetKind::Borders;
    return known && sheet.binDegrees >= 1 && sheet.binDegrees <= 90 &&
           180 % sheet.binDegrees == 0 && sheet.stepsPerDegree >= 1 &&
           sheet.stepsPerDegree <= 0xFFFF / sheet.binDegrees &&
           sheet.metresPerPixelFrom < sheet.metresPerPixelTo;
}

}  // namespace

std::string BaseMapFile::open(const std::filesystem::path& path, FileSystem& disk) {
    return open(disk.openRandomAccess(path), textOf(path.filename()));
}

std::string BaseMapFile::open(std::unique_ptr<RandomAccessFile> file, const std::string& name) {
    *this = {};
    name_ = name;
    file_ = std::move(file);
    std::string error = file_ ? readHead() : "File Open Error: " + name;
    if (!error.empty())
        *this = {};
    return error;
}

std::string BaseMapFile::readHead() {
    size_ = file_->size();
    head_.resize(kMapHeaderSize);
    if (file_->readAt(0, head_) != kMapHeaderSize ||
        !std::equal(kMapMagic.begin(), kMapMagic.end(), head_.begin(),
                    [](char a, std::uint8_t b) { return static_cast<unsigned char>(a) == b; }))
        return name_ + " is not a base map";
    if (word(kMapVersionAt) != kMapVersion)
        return name_ + " is a base map of another version";
    const std::uint32_t headSize = word(kMapHeadSizeAt);
    if (word(kMapFileSizeAt) != size_)
        return name_ + " is not as long as it says: it was cut off or added to";
    if (headSize < kMapHeaderSize || headSize > size_ || headSize > kLargestHead)
        return name_ + " is damaged: the size of its directory";
    head_.resize(headSize);
    if (file_->readAt(0, head_) != headSize)
        return "File Read Error: " + name_;
    if (checksumOf(head_) != word(kMapChecksumAt))
        return name_ + " is damaged: the checksum of its directory";
    const std::uint32_t textAt = word(kMapAttributionAt);
    const std::uint32_t textSize = word(kMapAttributionSizeAt);
    if (textAt > headSize || textSize > headSize - textAt)
        return name_ + " is damaged: its attribution";
    attribution_.assign(head_.begin() + textAt, head_.begin() + textAt + textSize);
    made_ = word(kMapMadeAt);
    return readSheets();
}

std::string BaseMapFile::readSheets() {
    const std::uint32_t at = word(kMapSheetsAt);
    const std::uint32_t count = word(kMapSheetCountAt);
    if (count > kMostSheets || at > head_.size() || count * kSheetRowSize > head_.size() - at)
        return name_ + " is damaged: the list of its sheets";
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::size_t row = at + i * kSheetRowSize;
        MapSheet sheet;
        sheet.kind = static_cast<SheetKind>(std::min(word(row), 255U));
        sheet.binDegrees = static_cast<int>(std::min(word(row + 4), 255U));
        sheet.stepsPerDegree = static_cast<int>(std::min(word(row + 8), 0xFFFFFFU));
        sheet.toleranceM = word(row + 12);
        sheet.metresPerPixelFrom = word(row + 16);
        sheet.metresPerPixelTo = word(row + 20);
        sheet.indexAt = word(row + 24);
        if (!isSheet(sheet) || !isIndex(sheet.indexAt, sheet.bins()))
            return name_ + " is damaged: sheet " + std::to_string(i + 1);
        sheets_.push_back(sheet);
    }
    reliefIndex_ = word(kMapReliefIndexAt);
    townIndex_ = word(kMapTownIndexAt);
    if (reliefIndex_ != 0 && !isIndex(reliefIndex_, kReliefColumns * kReliefRows))
        return name_ + " is damaged: the index of its heights";
    if (townIndex_ != 0 && !isIndex(townIndex_, kTownColumns * kTownRows))
        return name_ + " is damaged: the index of its towns";
    return {};
}

/// Offsets never fall, and none lies in the directory or beyond the file's end.
bool BaseMapFile::isIndex(std::uint32_t at, int entries) const {
    const auto words = static_cast<std::size_t>(entries) + 1;
    if (at < kMapHeaderSize || at > head_.size() || words > (head_.size() - at) / 4)
        return false;
    auto last = static_cast<std::uint32_t>(head_.size());
    for (std::size_t i = 0; i < words; ++i) {
        const std::uint32_t entry = word(at + 4 * i);
        const std::uint32_t offset = entry & kBinOffsetMask;
        if (offset < last || offset > size_ ||
            entry >> kBinStateShift > static_cast<unsigned>(BinState::Mixed))
            return false;
        last = offset;
    }
    return true;
}

std::uint32_t BaseMapFile::word(std::size_t at) const { return wordAt(head_, at); }

std::optional<std::size_t> BaseMapFile::sheetFor(SheetKind kind, double metresPerPixel) const {
    std::optional<std::size_t> best;
    double bestAway = 0;
    for (std::size_t i = 0; i < sheets_.size(); ++i) {
        const MapSheet& sheet = sheets_[i];
        if (sheet.kind != kind)
            continue;
        const double away =
            metresPerPixel < sheet.metresPerPixelFrom ? sheet.metresPerPixelFrom - metresPerPixel
            : metresPerPixel < sheet.metresPerPixelTo ? 0
                                                      : metresPerPixel - sheet.metresPerPixelTo + 1;
        if (!best || away < bestAway) {
            best = i;
            bestAway = away;
        }
    }
    return best;
}

BinState BaseMapFile::state(const MapSheet& sheet, int bin) const {
    return static_cast<BinState>(word(sheet.indexAt + 4 * static_cast<std::size_t>(bin)) >>
                                 kBinStateShift);
}

BaseMapFile::Extent BaseMapFile::extent(const MapSheet& sheet, int bin) const {
    return extentIn(sheet.indexAt, bin);
}

BaseMapFile::Extent BaseMapFile::extentIn(std::uint32_t indexAt, int entry) const {
    if (indexAt == 0)
        return {};
    const std::size_t at = indexAt + 4 * static_cast<std::size_t>(entry);
    const std::uint32_t first = word(at) & kBinOffsetMask;
    return {.at = first, .size = (word(at + 4) & kBinOffsetMask) - first};
}

bool BaseMapFile::read(Extent extent, std::vector<std::uint8_t>& bytes) const {
    bytes.resize(extent.size);
    return file_->readAt(extent.at, bytes) == extent.size;
}

}  // namespace korvel
