#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "navdb/file/BlockCache.h"
#include "navdb/file/DatabaseDirectory.h"
#include "navdb/file/FieldValue.h"
#include "navdb/records/DatabaseRecord.h"
#include "platform/FileSystem.h"

namespace korvel {

/// Reads rows of one file, one at a time: load() makes a row the current one, the accessors read
/// its fields. The file is opened by the first read; when that fails, all reads fail. Not
/// thread-safe: DatabaseFile hands it out under its lock.
class RowReader {
 public:
    RowReader() = default;
    /// `stringArea` is the file offset that texts count from; `disk` must outlive the reader.
    RowReader(std::filesystem::path path, std::uint32_t stringArea, FileSystem& disk)
        : path_(std::move(path)), stringArea_(stringArea), disk_(&disk) {}

    /// Makes the row at a file position the current one; false when it cannot be read.
    [[nodiscard]] bool load(const TableEntry& table, std::uint64_t position);
    [[nodiscard]] bool load(const IndexEntry& index, std::uint32_t row) {
        return load(*index.table, index.rowPosition(row));
    }

    // Fields of the current row. A null field reads as absent.
    [[nodiscard]] std::optional<std::int32_t> word(const FieldEntry* field) const;
    /// Scaled as the field's type says.
    [[nodiscard]] std::optional<double> number(const FieldEntry* field) const;
    /// Of a text field, a marked text or, up to its first 0, a byte block; else empty.
    void text(const FieldEntry* field, std::string& text);
    /// Of a text field whose word was read before, from a row that need not be current.
    void textOf(std::int32_t word, std::string& text);
    /// Every field by name; values that `fields` already holds are reused.
    void decode(FieldMap& fields);
    /// Looks for one field by the widths that the directory declares for texts, 4 bytes for all
    /// others. Agrees with decode() only where every text declares length 4 and no byte block of
    /// another length stands before the field; nothing when it leads out of the row.
    [[nodiscard]] std::optional<FieldValue> readNamedField(std::string_view name);

    /// A four-byte integer anywhere in the file, and one of a row that need not be current.
    [[nodiscard]] std::optional<std::int32_t> wordAt(std::uint64_t position);
    [[nodiscard]] std::optional<std::int32_t> peek(const IndexEntry& index, std::uint32_t row,
                                                   const FieldEntry& field);

    // Search by the text of a field that the index is ordered by.
    /// Number of the first row that is not below the key; rowCount() when all are.
    [[nodiscard]] std::uint32_t firstNotBelow(const IndexEntry& index, const FieldEntry& field,
                                              std::string_view key);
    [[nodiscard]] bool equals(const IndexEntry& index, std::uint32_t row, const FieldEntry& field,
                              std::string_view key);
    [[nodiscard]] int compare(const IndexEntry& index, std::uint32_t row, const FieldEntry& field,
                              std::string_view key);

 private:
    [[nodiscard]] bool ready();
    void fill(const FieldEntry& field, std::span<const std::uint8_t> bytes, FieldValue& value);
    void readText(std::uint32_t offset, std::string& text);
    [[nodiscard]] int compareRemembered(const IndexEntry& index, std::uint32_t row,
                                        const FieldEntry& field, std::string_view key);

    std::filesystem::path path_;
    std::uint32_t stringArea_ = 0;
    FileSystem* disk_ = nullptr;  ///< null for a reader of no file
    std::unique_ptr<BlockCache> cache_;
    const TableEntry* table_ = nullptr;
    std::vector<std::uint8_t> row_;
    /// Short texts of the rows at which searches turn first, by the rows' file offsets: without
    /// them every search would read blocks from all over the index.
    std::unordered_map<std::uint32_t, Ident> turns_;
    std::string scratch_;
};

/// The field that an index is ordered by as text: ID for places and airways, ARPT_ID for an
/// airport's runways and frequencies. Null for indexes that have another order or none, and for
/// tables without that field.
const FieldEntry* orderingField(const IndexEntry& index);

}  // namespace korvel
