#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "navdb/file/DatabaseLayout.h"
#include "platform/RandomAccessFile.h"

namespace korvel {

/// A name of the file, its 8 bytes as one word; bytes behind the first NUL are cleared.
using PackedName = std::uint64_t;

constexpr PackedName packName(std::string_view name) {
    PackedName packed = 0;
    for (std::size_t i = 0; i < kNameLength && i < name.size() && name[i] != '\0'; ++i)
        packed |= static_cast<PackedName>(static_cast<unsigned char>(name[i])) << (8 * i);
    return packed;
}

std::string unpackName(PackedName name);

struct FieldEntry {
    PackedName name = 0;
    FieldType type = FieldType::Integer;
    std::uint32_t length = 0;  ///< as declared
    std::uint32_t offset = 0;  ///< in the row

    /// Bytes in the row.
    [[nodiscard]] std::uint32_t width() const { return type == FieldType::Bytes ? length : 4; }
};

struct TableEntry {
    PackedName name = 0;
    std::uint32_t entryOffset = 0;  ///< indexes name their table by this
    std::uint32_t rowSize = 0;      ///< above 0, holds all fields
    std::vector<FieldEntry> fields;
    std::vector<std::uint32_t> keys;  ///< numbers of the fields that its indexes go by

    /// Null when the table has no such field.
    [[nodiscard]] const FieldEntry* field(PackedName fieldName) const;
};

struct IndexEntry {
    PackedName name = 0;
    const TableEntry* table = nullptr;  ///< never null in a directory
    std::uint32_t dataStart = 0;        ///< the data lie inside the file
    std::uint32_t dataLength = 0;

    [[nodiscard]] std::uint32_t rowCount() const { return dataLength / table->rowSize; }
    /// File offset of a row below rowCount().
    [[nodiscard]] std::uint32_t rowPosition(std::uint32_t row) const {
        return dataStart + row * table->rowSize;
    }
};

/// The tables and indexes that a file declares. Everything in it has been checked against the
/// size of the file. Movable; entries keep their addresses.
class DatabaseDirectory {
 public:
    /// Larger rows, or more entries, are taken for damage.
    static constexpr std::uint32_t kMaxRowSize = 65536;
    static constexpr std::size_t kMaxEntries = 1000;

    // Both are false when an entry is malformed or leads out of the file. The tables go first:
    // the indexes refer to them.
    [[nodiscard]] bool readTables(const RandomAccessFile& file, std::uint64_t fileSize,
                                  std::uint32_t offset);
    [[nodiscard]] bool readIndexes(const RandomAccessFile& file, std::uint64_t fileSize,
                                   std::uint32_t offset);

    [[nodiscard]] const std::vector<std::unique_ptr<TableEntry>>& tables() const { return tables_; }
    [[nodiscard]] const std::vector<IndexEntry>& indexes() const { return indexes_; }
    /// Null when there is none of that name; of several the last one counts.
    [[nodiscard]] const IndexEntry* index(PackedName name) const;
    [[nodiscard]] const TableEntry* table(PackedName name) const;
    /// The table of the index whose data hold this file offset; null when none does.
    [[nodiscard]] const TableEntry* tableOfRow(std::uint32_t position) const;

 private:
    [[nodiscard]] const TableEntry* tableAt(std::uint32_t entryOffset) const;

    std::vector<std::unique_ptr<TableEntry>> tables_;
    std::vector<IndexEntry> indexes_;
};

}  // namespace korvel
