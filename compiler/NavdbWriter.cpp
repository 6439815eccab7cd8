#include "compiler/NavdbWriter.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <limits>
#include <numeric>
#include <tuple>
#include <utility>

#include "navdb/file/DatabaseChecksum.h"
#include "navdb/file/LittleEndian.h"

namespace korvel {

namespace {

constexpr std::uint32_t kFieldWidth = 4;

std::int32_t scaled(double value, double unit) {
    const double steps = std::round(value / unit);
    constexpr double kLow = std::numeric_limits<std::int32_t>::min();
    constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(steps, kLow, kHigh));
}

std::size_t rowSize(std::span<const FieldLayout> fields) { return fields.size() * kFieldWidth; }

}  // namespace

std::int32_t toMillionths(double degrees) { return scaled(degrees, kDegreesUnit); }

void NavdbRows::begin(std::string_view sortText, double latDeg, double lonDeg) {
    assert(nextField_ == 0 || nextField_ == fields_.size());
    nextField_ = 0;
    keys_.push_back(
        {std::string(sortText), toMillionths(latDeg), cellOfStored(toMillionths(lonDeg))});
}

void NavdbRows::append(std::uint32_t value, [[maybe_unused]] FieldType type) {
    assert(nextField_ < fields_.size() && fields_[nextField_].type == type);
    ++nextField_;
    bytes_.resize(bytes_.size() + kFieldWidth);
    storeU32(bytes_, bytes_.size() - kFieldWidth, value);
}

void NavdbRows::integer(std::int32_t value) {
    append(static_cast<std::uint32_t>(value), FieldType::Integer);
}

void NavdbRows::text(std::uint32_t offset) { append(offset, FieldType::Text); }

void NavdbRows::degrees(double value) {
    append(static_cast<std::uint32_t>(toMillionths(value)), FieldType::Degrees);
}

void NavdbRows::degreesOrNone(const std::optional<double>& value) {
    const std::int32_t stored = value ? toMillionths(*value) : kNoInteger;
    append(static_cast<std::uint32_t>(stored), FieldType::Degrees);
}

void NavdbRows::tenThousandths(double value) {
    append(static_cast<std::uint32_t>(scaled(value, kTenThousandthsUnit)),
           FieldType::TenThousandths);
}

void NavdbRows::fixed16(double value) {
    append(static_cast<std::uint32_t>(scaled(value, kFixed16Unit)), FieldType::Fixed16);
}

template <class Less>
std::vector<std::uint8_t> NavdbRows::sorted(Less less) const {
    std::vector<std::size_t> order(keys_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
        return less(keys_[one], keys_[other]);
    });
    const std::size_t width = rowSize(fields_);
    std::vector<std::uint8_t> out;
    out.reserve(bytes_.size());
    for (const std::size_t row : order) {
        const auto first = bytes_.begin() + static_cast<std::ptrdiff_t>(row * width);
        out.insert(out.end(), first, first + static_cast<std::ptrdiff_t>(width));
    }
    return out;
}

std::vector<std::uint8_t> NavdbRows::inTextOrder() const {
    return sorted([](const Key& one, const Key& other) { return one.text < other.text; });
}

std::vector<std::uint8_t> NavdbRows::inPlaceOrder() const {
    return sorted([](const Key& one, const Key& other) {
        return std::tie(one.cell, one.latMillionths) < std::tie(other.cell, other.latMillionths);
    });
}

std::vector<std::int32_t> NavdbRows::cellStarts() const {
    std::vector<std::int32_t> starts(kCellCount + 1, 0);
    for (const Key& key : keys_)
        ++starts[static_cast<std::size_t>(key.cell) + 1];
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    return starts;
}

/// The file as it grows; what is known only later is patched in.
class NavdbWriter::FileBytes {
 public:
    void u32(std::size_t value) {
        bytes_.resize(bytes_.size() + 4);
        storeU32(bytes_, bytes_.size() - 4, static_cast<std::uint32_t>(value));
    }
    void name(std::string_view text) {
        assert(text.size() <= kNameLength);
        append(text);
        bytes_.resize(bytes_.size() + kNameLength - text.size());
    }
    template <class Bytes>
    void append(const Bytes& bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    }
    void zeros(std::size_t count) { bytes_.resize(bytes_.size() + count); }
    void patch(std::size_t offset, std::size_t value) {
        storeU32(bytes_, offset, static_cast<std::uint32_t>(value));
    }
    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] std::span<const std::uint8_t> bytes() const { return bytes_; }

 private:
    std::vector<std::uint8_t> bytes_;
};

// Text 0 is the empty one.
NavdbWriter::NavdbWriter() : strings_(1, '\0'), offsets_{{std::string(), 0}} {}

std::uint32_t NavdbWriter::addText(std::string_view text) {
    std::string kept(text.substr(0, std::min(text.find('\0'), kMaxTextLength)));
    for (char& c : kept)
        c = static_cast<char>(static_cast<unsigned char>(c) & kTextMask);
    const auto [place, added] = offsets_.emplace(kept, static_cast<std::uint32_t>(strings_.size()));
    if (added)
        strings_.append(kept).append(1, '\0');
    return place->second;
}

std::size_t NavdbWriter::addTable(std::string_view name, std::span<const FieldLayout> fields) {
    tables_.push_back({std::string(name), fields});
    return tables_.size() - 1;
}

void NavdbWriter::addIndex(std::string_view name, std::size_t table,
                           std::vector<std::uint8_t> rows) {
    assert(table < tables_.size() && rows.size() % rowSize(tables_[table].fields) == 0);
    indexes_.push_back({std::string(name), table, std::move(rows)});
}

void NavdbWriter::writeTables(FileBytes& file, std::vector<std::uint32_t>& entries) const {
    for (const Table& table : tables_) {
        entries.push_back(static_cast<std::uint32_t>(file.size()));
        file.name(table.name);
        file.u32(rowSize(table.fields));
        file.u32(table.fields.size());
        for (const FieldLayout& field : table.fields) {
            file.name(field.name);
            file.u32(static_cast<std::uint32_t>(field.type));
            file.u32(kFieldWidth);
        }
        file.u32(0);  // no key descriptors: the indexes' names say what orders them
        assert(file.size() - entries.back() <= kMaxDirectoryEntry);
    }
    file.zeros(kNameLength);
}

void NavdbWriter::writeIndexes(FileBytes& file, std::span<const std::uint32_t> tableEntries,
                               std::size_t firstData) const {
    std::size_t data = firstData;
    for (const Index& index : indexes_) {
        file.name(index.name);
        file.u32(tableEntries[index.table]);
        file.u32(data);
        file.u32(index.rows.size());
        data += index.rows.size();
    }
    file.zeros(kNameLength);
}

std::size_t NavdbWriter::dataOffset(std::string_view index, std::size_t firstData) const {
    std::size_t data = firstData;
    for (const Index& each : indexes_) {
        if (each.name == index)
            return data;
        data += each.rows.size();
    }
    return 0;
}

void NavdbWriter::writeGrid(FileBytes& file, std::size_t firstData) const {
    const auto index = std::find_if(indexes_.begin(), indexes_.end(),
                                    [this](const Index& each) { return each.name == gridIndex_; });
    const std::size_t width = rowSize(tables_[index->table].fields);
    const std::size_t start = dataOffset(gridIndex_, firstData);
    file.u32(kCellCount - 1);  // from cell 0 to the last one
    for (std::size_t cell = 0; cell <= kCellCount; ++cell)
        file.u32(start + cell * width);
}

std::string NavdbWriter::finish(const NavdbHeader& header) const {
    constexpr std::size_t kGridSize = (1 + std::size_t{kCellCount} + 1) * 4;
    const bool withGrid = !gridIndex_.empty();
    FileBytes file;
    file.append(kFormatVersion);
    file.zeros(kHeaderSize - kFormatVersion.size());
    file.patch(kRegionOffset, static_cast<unsigned char>(header.region));
    file.patch(kExpiryOffset, static_cast<std::size_t>(header.expiryYmd));
    const auto signedWord = [](double degrees) {
        return static_cast<std::uint32_t>(toMillionths(degrees));
    };
    file.patch(kSouthernCoverageOffset, signedWord(header.southernDeg));
    file.patch(kNorthernCoverageOffset, signedWord(header.northernDeg));
    file.patch(kDataCycleOffset, static_cast<std::size_t>(header.dataCycleYycc));

    file.patch(kTableDirectoryOffset, file.size());
    std::vector<std::uint32_t> tableEntries;
    writeTables(file, tableEntries);

    // The index data stands last, so that reading a text's longest extent never runs out of file.
    const std::size_t indexDirectorySize = indexes_.size() * kIndexEntrySize + kNameLength;
    const std::size_t firstData =
        file.size() + indexDirectorySize + (withGrid ? kGridSize : 0) + strings_.size();
    file.patch(kIndexDirectoryOffset, file.size());
    writeIndexes(file, tableEntries, firstData);
    if (withGrid) {
        file.patch(kAreaGridOffset, file.size());
        writeGrid(file, firstData);
    }
    file.patch(kStringAreaOffset, file.size());
    file.append(strings_);
    for (const Index& index : indexes_)
        file.append(index.rows);

    file.patch(kHeaderChecksumOffset,
               headerChecksum(file.bytes(), static_cast<std::uint32_t>(file.size())));
    DatabaseChecksum full;
    full.add(file.bytes().subspan(kRegionOffset));
    file.patch(kFullChecksumOffset, full.value());
    return {file.bytes().begin(), file.bytes().end()};
}

}  // namespace korvel
