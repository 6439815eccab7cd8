#include "navdb/file/DatabaseDirectory.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "navdb/file/LittleEndian.h"

namespace korvel {
namespace {

constexpr std::size_t kTableHead = kNameLength + 8;  // name, row size, field count

PackedName nameAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
    std::array<char, kNameLength> name{};
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(offset), kNameLength, name.begin());
    return packName({name.data(), name.size()});
}

/// False when the fields do not fit into the row.
bool readFields(std::span<const std::uint8_t> entry, std::uint32_t count, TableEntry& table) {
    std::uint64_t offset = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto descriptor = entry.subspan(kTableHead + i * kFieldDescriptorSize);
        FieldEntry field{.name = nameAt(descriptor, 0),
                         .type = static_cast<FieldType>(loadU32(descriptor, kNameLength)),
                         .length = loadU32(descriptor, kNameLength + 4),
                         .offset = static_cast<std::uint32_t>(offset)};
        offset += field.width();
        if (offset > table.rowSize)
            return false;
        table.fields.push_back(field);
    }
    return true;
}

/// Walks a directory in blocks that always hold the whole entry in hand.
class EntryReader {
 public:
    EntryReader(const RandomAccessFile& file, std::uint64_t fileSize, std::uint32_t offset)
        : file_(file), fileSize_(fileSize), position_(offset) {
        fill();
    }
    [[nodiscard]] std::uint64_t position() const { return position_; }
    /// From the entry in hand on: kMaxDirectoryEntry bytes unless the file ends before.
    [[nodiscard]] std::span<const std::uint8_t> entry() const {
        const std::size_t at = std::min<std::size_t>(position_ - blockStart_, filled_);
        return std::span(block_).subspan(at, std::min(filled_ - at, kMaxDirectoryEntry));
    }
    /// Whether reading failed, which looks like an end otherwise.
    [[nodiscard]] bool isBroken() const { return isBroken_; }
    [[nodiscard]] bool atEnd() const { return entry().empty() || entry()[0] == 0; }
    void advance(std::size_t bytes) {
        position_ += bytes;
        if (position_ - blockStart_ > kMaxDirectoryEntry)
            fill();
    }

 private:
    void fill() {
        blockStart_ = position_;
        filled_ = file_.readAt(position_, block_);
        const std::uint64_t left = fileSize_ - std::min(position_, fileSize_);
        isBroken_ = isBroken_ || filled_ < std::min<std::uint64_t>(block_.size(), left);
    }

    const RandomAccessFile& file_;
    std::uint64_t fileSize_;
    bool isBroken_ = false;
    std::array<std::uint8_t, 2 * kMaxDirectoryEntry> block_{};
    std::size_t filled_ = 0;
    std::uint64_t blockStart_ = 0;
    std::uint64_t position_ = 0;
};

/// One table entry and its size in the directory; nothing when it is malformed.
std::optional<std::size_t> parseTable(std::span<const std::uint8_t> entry, TableEntry& table) {
    if (entry.size() < kTableHead + 4)
        return std::nullopt;
    table.name = nameAt(entry, 0);
    table.rowSize = loadU32(entry, kNameLength);
    const std::uint32_t fieldCount = loadU32(entry, kNameLength + 4);
    const std::uint64_t keysAt = kTableHead + std::uint64_t{fieldCount} * kFieldDescriptorSize;
    if (table.rowSize == 0 || table.rowSize > DatabaseDirectory::kMaxRowSize ||
        keysAt + 4 > entry.size() || !readFields(entry, fieldCount, table))
        return std::nullopt;
    const std::uint32_t keyCount = loadU32(entry, keysAt);
    if (keyCount > kMaxKeys || keysAt + 4 + std::uint64_t{keyCount} * 4 > entry.size())
        return std::nullopt;
    std::size_t at = keysAt + 4;
    for (std::uint32_t i = 0; i < keyCount; ++i, at += 4)
        table.keys.push_back(loadU32(entry, at));
    return at;
}

}  // namespace

std::string unpackName(PackedName name) {
    std::string text;
    for (; name != 0; name >>= 8U)
        text += static_cast<char>(name & 0xFFU);
    return text;
}

const FieldEntry* TableEntry::field(PackedName fieldName) const {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [=](const FieldEntry& f) { return f.name == fieldName; });
    return found == fields.end() ? nullptr : &*found;
}

bool DatabaseDirectory::readTables(const RandomAccessFile& file, std::uint64_t fileSize,
                                   std::uint32_t offset) {
    if (offset > fileSize)
        return false;
    EntryReader reader(file, fileSize, offset);
    while (!reader.atEnd()) {
        auto table = std::make_unique<TableEntry>();
        table->entryOffset = static_cast<std::uint32_t>(reader.position());
        const auto size = parseTable(reader.entry(), *table);
        if (!size || tables_.size() == kMaxEntries)
            return false;
        tables_.push_back(std::move(table));
        reader.advance(*size);
    }
    return !reader.isBroken();
}

bool DatabaseDirectory::readIndexes(const RandomAccessFile& file, std::uint64_t fileSize,
                                    std::uint32_t offset) {
    if (offset > fileSize)
        return false;
    EntryReader reader(file, fileSize, offset);
    for (; !reader.atEnd(); reader.advance(kIndexEntrySize)) {
        const auto entry = reader.entry();
        if (entry.size() < kIndexEntrySize || indexes_.size() == kMaxEntries)
            return false;
        const IndexEntry index{.name = nameAt(entry, 0),
                               .table = tableAt(loadU32(entry, kNameLength)),
                               .dataStart = loadU32(entry, kNameLength + 4),
                               .dataLength = loadU32(entry, kNameLength + 8)};
        if (index.table == nullptr || std::uint64_t{index.dataStart} + index.dataLength >
                                          std::min<std::uint64_t>(fileSize, UINT32_MAX))
            return false;
        indexes_.push_back(index);
    }
    return !reader.isBroken();
}

const TableEntry* DatabaseDirectory::tableAt(std::uint32_t entryOffset) const {
    const auto found = std::find_if(tables_.begin(), tables_.end(), [=](const auto& table) {
        return table->entryOffset == entryOffset;
    });
    return found == tables_.end() ? nullptr : found->get();
}

const IndexEntry* DatabaseDirectory::index(PackedName name) const {
    const auto found = std::find_if(indexes_.rbegin(), indexes_.rend(),
                                    [=](const IndexEntry& i) { return i.name == name; });
    return found == indexes_.rend() ? nullptr : &*found;
}

const TableEntry* DatabaseDirectory::table(PackedName name) const {
    const auto found = std::find_if(tables_.rbegin(), tables_.rend(),
                                    [=](const auto& t) { return t->name == name; });
    return found == tables_.rend() ? nullptr : found->get();
}

const TableEntry* DatabaseDirectory::tableOfRow(std::uint32_t position) const {
    const auto found = std::find_if(indexes_.begin(), indexes_.end(), [=](const IndexEntry& i) {
        return position >= i.dataStart && position - i.dataStart < i.dataLength;
    });
    return found == indexes_.end() ? nullptr : found->table;
}

}  // namespace korvel
