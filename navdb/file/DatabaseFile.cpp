#include "navdb/file/DatabaseFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "base/TextNumbers.h"
#include "config/texts/DatabaseTexts.h"
#include "navdb/file/DatabaseChecksum.h"
#include "navdb/file/LittleEndian.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr std::size_t kCheckBlock = 65536;
constexpr int kCheckStart = 10;  // progress, per cent
constexpr int kCheckSpan = 50;
constexpr int kQuickTestDone = 50;
constexpr int kTablesDone = 70;
constexpr int kIndexesDone = 85;
constexpr int kAllDone = 100;

constexpr char kRegionThatExpires = 'K';
constexpr std::int64_t kSecondsPerDay = 86400;

using HeaderBytes = std::array<std::uint8_t, kHeaderSize>;

bool goesOn(const DatabaseFile::Progress& progress, int percent) {
    return !progress || progress(percent);
}

/// Empty when this program can read the version, else the message.
std::string_view parseVersion(const HeaderBytes& bytes, DatabaseHeader& header) {
    const auto* const end = std::find(bytes.begin(), bytes.begin() + kVersionLength, 0);
    header.version.assign(bytes.begin(), end);
    std::string_view number = header.version;
    if (number.substr(0, kFormatNameLength) != kFormatVersion.substr(0, kFormatNameLength))
        return text(kDatabaseTexts.incorrectFormat);
    number.remove_prefix(kFormatNameLength);
    header.versionNumber = scanDouble(number).value_or(0.0);
    const double own = ParseDouble(kFormatVersion.substr(kFormatNameLength));
    const bool readable = header.versionNumber >= kOldestReadableVersion &&
                          std::trunc(header.versionNumber) == std::trunc(own);
    return readable ? std::string_view{} : text(kDatabaseTexts.updateFormat);
}

void parseFields(const HeaderBytes& bytes, DatabaseHeader& header) {
    header.fullChecksum = loadU32(bytes, kFullChecksumOffset);
    header.region = loadU32(bytes, kRegionOffset);
    header.tableDirectory = loadU32(bytes, kTableDirectoryOffset);
    header.indexDirectory = loadU32(bytes, kIndexDirectoryOffset);
    header.stringArea = loadU32(bytes, kStringAreaOffset);
    header.expiry = loadU32(bytes, kExpiryOffset);
    header.southernCoverageDeg = loadI32(bytes, kSouthernCoverageOffset) * kDegreesUnit;
    header.northernCoverageDeg = loadI32(bytes, kNorthernCoverageOffset) * kDegreesUnit;
    header.dataCycle = loadU32(bytes, kDataCycleOffset);
    header.areaGrid = loadU32(bytes, kAreaGridOffset);
    header.headerChecksum = loadU32(bytes, kHeaderChecksumOffset);
}

/// Empty when the sum over everything from the region word on is the one expected.
std::string_view testSum(const RandomAccessFile& file, std::uint64_t size, std::uint32_t expected,
                         const DatabaseFile::Progress& progress) {
    DatabaseChecksum checksum;
    std::vector<std::uint8_t> block(std::min<std::uint64_t>(kCheckBlock, size));
    for (std::uint64_t at = kRegionOffset; at < size;) {
        const std::size_t wanted = std::min<std::uint64_t>(block.size(), size - at);
        const auto bytes = std::span(block).first(wanted);
        if (file.readAt(at, bytes) != wanted)
            return text(kDatabaseTexts.corruptedFile);
        checksum.add(bytes);
        at += wanted;
        const double share = static_cast<double>(at) / static_cast<double>(size);
        if (!goesOn(progress, kCheckStart + static_cast<int>(share * kCheckSpan)))
            return text(kDatabaseTexts.aborting);
    }
    return checksum.value() == expected ? std::string_view{} : text(kDatabaseTexts.corruptedFile);
}

/// Whether a date that has passed takes the data out of use; no date always does.
bool dateCounts(std::uint32_t expiry, char region) {
    return expiry == 0 || region == kRegionThatExpires;
}

/// Later opens find a full checksum of 0 and test the header only. A file that cannot be written
/// is simply tested in full again.
void markAsVerified(const std::filesystem::path& path, FileSystem& disk) {
    constexpr std::array<std::uint8_t, 4> kVerified{};
    [[maybe_unused]] const bool marked = disk.overwrite(path, kFullChecksumOffset, kVerified);
}

}  // namespace

std::string DatabaseFile::Open(const std::filesystem::path& path, const Clock& clock,
                               const Progress& progress, FileSystem& disk) {
    const auto file = disk.openRandomAccess(path);
    if (!file)
        return std::string(text(kDatabaseTexts.fileOpenError));
    const std::string_view message = readFrom(path, *file, progress, disk);
    if (!message.empty()) {
        header_ = {};
        directory_ = {};
        gridWords_.clear();
        return std::string(message);
    }
    pastDate_ = korvel::isPastDate(header_.expiry, clock);
    expired_ = pastDate_ && dateCounts(header_.expiry, regionLetter());
    fileName_ = std::make_shared<const std::string>(textOf(path.filename()));
    *rows_.lock() = RowReader(path, header_.stringArea, disk);
    if (progress)
        progress(kAllDone);
    return {};
}

std::string_view DatabaseFile::readFrom(const std::filesystem::path& path,
                                        const RandomAccessFile& file, const Progress& progress,
                                        FileSystem& disk) {
    HeaderBytes bytes{};
    if (file.readAt(0, bytes) != bytes.size())
        return text(kDatabaseTexts.invalidFormat);
    if (const auto message = parseVersion(bytes, header_); !message.empty())
        return message;
    parseFields(bytes, header_);
    size_ = file.size();
    if (header_.fullChecksum == 0) {
        if (!goesOn(progress, kQuickTestDone))
            return text(kDatabaseTexts.aborting);
        if (headerChecksum(bytes, static_cast<std::uint32_t>(size_)) != header_.headerChecksum)
            return text(kDatabaseTexts.corruptedFile);
    } else {
        const auto message = testSum(file, size_, header_.fullChecksum, progress);
        if (!message.empty())
            return message;
        if (header_.versionNumber >= kFirstMarkedVersion)
            markAsVerified(path, disk);
    }
    if (!directory_.readTables(file, size_, header_.tableDirectory))
        return text(kDatabaseTexts.corruptedFile);
    if (!goesOn(progress, kTablesDone))
        return text(kDatabaseTexts.aborting);
    if (!directory_.readIndexes(file, size_, header_.indexDirectory))
        return text(kDatabaseTexts.corruptedFile);
    if (!goesOn(progress, kIndexesDone))
        return text(kDatabaseTexts.aborting);
    const bool isWhole = header_.stringArea <= size_ && readAreaGrid(file);
    return isWhole ? std::string_view{} : text(kDatabaseTexts.corruptedFile);
}

bool DatabaseFile::readAreaGrid(const RandomAccessFile& file) {
    if (header_.areaGrid == 0)
        return true;
    std::array<std::uint8_t, 4> word{};
    if (file.readAt(header_.areaGrid, word) != word.size())
        return false;
    const std::uint32_t cells = loadU32(word, 0);
    const int first = static_cast<int>(cells >> 16U);
    const int last = static_cast<int>(cells & 0xFFFFU);
    if (last < first)
        return true;  // a grid of no cells
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(last - first + 2) * 4);
    if (file.readAt(std::uint64_t{header_.areaGrid} + word.size(), bytes) != bytes.size())
        return false;
    firstCell_ = first;
    gridWords_.resize(bytes.size() / 4);
    for (std::size_t i = 0; i < gridWords_.size(); ++i)
        gridWords_[i] = loadU32(bytes, i * 4);
    return true;
}

bool isOutOfDate(std::uint32_t expiry, char region, const Clock& clock) {
    return dateCounts(expiry, region) && isPastDate(expiry, clock);
}

/// Months and days out of range run on into the next ones.
bool isPastDate(std::uint32_t expiry, const Clock& clock) {
    if (expiry == 0)
        return true;
    const auto part = [expiry](std::uint32_t divisor, std::uint32_t range) {
        return static_cast<int>(expiry / divisor % range);
    };
    const LocalTime start{.year = part(10000, 10000), .month = part(100, 100), .day = part(1, 100)};
    return clock.unixSecondsAt(start) + kSecondsPerDay <= clock.unixSeconds();
}

}  // namespace korvel
