#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "navdb/file/DatabaseTables.h"

namespace korvel {

/// What a database says about itself as a whole.
struct NavdbHeader {
    /// ICAO region letter. Look-ups of airports put it before an identifier or take it off, and
    /// 'K' makes the expiry date count.
    char region = 0;
    int expiryYmd = 0;      ///< YYYYMMDD, 0 for none
    int dataCycleYycc = 0;  ///< 0 for unknown
    double southernDeg = 0.0;
    double northernDeg = 0.0;
};

/// Rows of one table, packed as a file holds them, with what its indexes order them by.
class NavdbRows {
 public:
    explicit NavdbRows(std::span<const FieldLayout> fields) : fields_(fields) {}

    /// Begins a row; then each field is added in layout order, with the call for its type.
    void begin(std::string_view sortText, double latDeg = 0.0, double lonDeg = 0.0);
    void integer(std::int32_t value);
    void text(std::uint32_t offset);
    void degrees(double value);
    /// A coordinate of a runway end, which may be unknown.
    void degreesOrNone(const std::optional<double>& value);
    void tenThousandths(double value);
    void fixed16(double value);

    [[nodiscard]] std::size_t count() const { return keys_.size(); }
    [[nodiscard]] std::span<const FieldLayout> fields() const { return fields_; }
    /// The rows' bytes by sort text, byte by byte; equal ones in the order in which they came.
    [[nodiscard]] std::vector<std::uint8_t> inTextOrder() const;
    /// The rows' bytes by cell, then latitude.
    [[nodiscard]] std::vector<std::uint8_t> inPlaceOrder() const;
    /// For each cell, and behind the last one, how many rows stand before it in place order.
    [[nodiscard]] std::vector<std::int32_t> cellStarts() const;
    /// The rows' bytes as they came.
    [[nodiscard]] const std::vector<std::uint8_t>& bytes() const { return bytes_; }

 private:
    struct Key {
        std::string text;
        std::int32_t latMillionths = 0;
        int cell = 0;
    };
    void append(std::uint32_t value, FieldType type);
    template <class Less>
    [[nodiscard]] std::vector<std::uint8_t> sorted(Less less) const;

    std::span<const FieldLayout> fields_;
    std::size_t nextField_ = 0;
    std::vector<std::uint8_t> bytes_;
    std::vector<Key> keys_;
};

/// A scaled integer as a database stores a coordinate in degrees.
std::int32_t toMillionths(double degrees);

/// Lays tables, indexes and texts out as an ".ng2" file (see DatabaseLayout.h), in memory.
class NavdbWriter {
 public:
    NavdbWriter();

    /// The offset of a text in the string area; equal texts share one place. Text beyond the
    /// longest that can be read back is cut, and the high bit of its bytes is lost.
    std::uint32_t addText(std::string_view text);

    /// Declares a table; the result names it in addIndex().
    std::size_t addTable(std::string_view name, std::span<const FieldLayout> fields);
    /// `rows` are whole rows of the table in index order.
    void addIndex(std::string_view name, std::size_t table, std::vector<std::uint8_t> rows);
    /// The area grid's word of cell c is the file offset of row c of this index, which has one row
    /// more than there are cells.
    void addGridOver(std::string_view indexName) { gridIndex_ = indexName; }

    /// The whole file, both checksums in place.
    [[nodiscard]] std::string finish(const NavdbHeader& header) const;

 private:
    struct Table {
        std::string name;
        std::span<const FieldLayout> fields;
    };
    struct Index {
        std::string name;
        std::size_t table = 0;
        std::vector<std::uint8_t> rows;
    };
    class FileBytes;

    void writeTables(FileBytes& file, std::vector<std::uint32_t>& entries) const;
    void writeIndexes(FileBytes& file, std::span<const std::uint32_t> tableEntries,
                      std::size_t firstData) const;
    void writeGrid(FileBytes& file, std::size_t firstData) const;
    [[nodiscard]] std::size_t dataOffset(std::string_view index, std::size_t firstData) const;

    std::vector<Table> tables_;
    std::vector<Index> indexes_;
    std::string gridIndex_;
    std::string strings_;
    std::unordered_map<std::string, std::uint32_t> offsets_;
};

}  // namespace korvel
