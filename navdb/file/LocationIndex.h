#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "navdb/file/DatabaseFile.h"
#include "navdb/records/RecordKey.h"

namespace korvel {

struct LocationIndexName {
    std::string_view name;
    KindMask kinds = 0;  ///< of the places in it
};
inline constexpr std::array<LocationIndexName, 4> kLocationIndexes{{{"ApNKey", kAirportKind},
                                                                    {"A2NKey", kAirportKind},
                                                                    {"NvNKey", kVorKind | kNdbKind},
                                                                    {"WpNKey", kFixKind}}};

/// Rows of one location index, read cell by cell. Uses the file's rows for as long as it lives.
class LocationIndex {
 public:
    /// Nothing when the file has no such index or its rows have no coordinates.
    static std::optional<LocationIndex> open(const DatabaseFile& file, std::string_view name,
                                             RowReader& rows);

    [[nodiscard]] const IndexEntry& index() const { return *index_; }

    /// Makes each row of the cell between two latitudes (stored, both included) the current one
    /// in turn and calls `visit` with its row number, until that answers false.
    template <class Visit>
    void visitCell(int cell, std::int32_t south, std::int32_t north, Visit&& visit) {
        const std::uint32_t end = firstRowOf(cell + 1);
        for (std::uint32_t row = firstFromSouth(firstRowOf(cell), end, south); row < end; ++row) {
            const auto lat = rows_->peek(*index_, row, *lat_);
            if (!lat || *lat > north || !rows_->load(*index_, row) || !visit(row))
                return;
        }
    }

    /// Number of the first row that stands in this cell (up to kCellCount) or a later one.
    [[nodiscard]] std::uint32_t firstRowOf(int cell);

 private:
    LocationIndex(const DatabaseFile& file, const IndexEntry& index, RowReader& rows);

    [[nodiscard]] int cellOfRow(std::uint32_t row);
    [[nodiscard]] std::optional<std::uint32_t> firstRowByGrid(int cell);
    [[nodiscard]] std::uint32_t firstFromSouth(std::uint32_t begin, std::uint32_t end,
                                               std::int32_t south);

    const DatabaseFile* file_;
    const IndexEntry* index_;
    RowReader* rows_;
    const FieldEntry* lat_;
    const FieldEntry* lon_;
    const FieldEntry* runField_ = nullptr;  ///< of the cells' own table
};

}  // namespace korvel
