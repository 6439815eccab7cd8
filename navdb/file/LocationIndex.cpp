#include "navdb/file/LocationIndex.h"

#include "navdb/file/DatabaseTables.h"

namespace korvel {
namespace {

/// The first of the numbers from `begin` up to `end` for which `isBelow` is false.
template <class IsBelow>
std::uint32_t partitionPoint(std::uint32_t begin, std::uint32_t end, IsBelow isBelow) {
    while (begin < end) {
        const std::uint32_t middle = begin + (end - begin) / 2;
        if (isBelow(middle))
            begin = middle + 1;
        else
            end = middle;
    }
    return begin;
}

}  // namespace

std::optional<LocationIndex> LocationIndex::open(const DatabaseFile& file, std::string_view name,
                                                 RowReader& rows) {
    const IndexEntry* const index = file.index(name);
    if (index == nullptr)
        return std::nullopt;
    LocationIndex location(file, *index, rows);
    if (location.lat_ == nullptr || location.lat_->type != FieldType::Degrees ||
        location.lon_ == nullptr || location.lon_->type != FieldType::Degrees)
        return std::nullopt;
    if (const IndexEntry* const runs = file.index("CellRun"); runs != nullptr)
        location.runField_ = runs->table->field(index->name);
    return location;
}

LocationIndex::LocationIndex(const DatabaseFile& file, const IndexEntry& index, RowReader& rows)
    : file_(&file),
      index_(&index),
      rows_(&rows),
      lat_(index.table->field(packName("LAT"))),
      lon_(index.table->field(packName("LON"))) {}

int LocationIndex::cellOfRow(std::uint32_t row) {
    return cellOfStored(rows_->peek(*index_, row, *lon_).value_or(0));
}

/// What the grid says, believed only where the rows on both sides bear it out: a grid that was
/// written for something else must not hide places.
std::optional<std::uint32_t> LocationIndex::firstRowByGrid(int cell) {
    const auto& words = file_->gridWords();
    const int at = cell - file_->firstCell();
    if (runField_ == nullptr || at < 0 || at >= static_cast<int>(words.size()))
        return std::nullopt;
    const auto stored =
        rows_->wordAt(std::uint64_t{words[static_cast<std::size_t>(at)]} + runField_->offset);
    const auto row = static_cast<std::uint32_t>(stored.value_or(-1));
    if (row > index_->rowCount() || (row > 0 && cellOfRow(row - 1) >= cell) ||
        (row < index_->rowCount() && cellOfRow(row) < cell))
        return std::nullopt;
    return row;
}

std::uint32_t LocationIndex::firstRowOf(int cell) {
    if (const auto row = firstRowByGrid(cell))
        return *row;
    return partitionPoint(0, index_->rowCount(),
                          [&](std::uint32_t row) { return cellOfRow(row) < cell; });
}

std::uint32_t LocationIndex::firstFromSouth(std::uint32_t begin, std::uint32_t end,
                                            std::int32_t south) {
    return partitionPoint(
        begin, end,
        [&](std::uint32_t row) { return rows_->peek(*index_, row, *lat_).value_or(0) < south; });
}

}  // namespace korvel
