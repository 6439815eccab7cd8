#include "navdb/file/DatabaseVerify.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "navdb/file/DatabaseTables.h"
#include "navdb/file/LocationIndex.h"

namespace korvel {
namespace {

/// What the rows of an index are compared by; only the members of its kind of order are set.
struct RowOrder {
    std::string text;
    int cell = 0;
    std::int32_t lat = 0;

    // The check takes the comparison that the compiler writes for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend auto operator<=>(const RowOrder&, const RowOrder&) = default;
};

class IndexWalk {
 public:
    IndexWalk(const DatabaseFile& file, const IndexEntry& index, RowReader& rows)
        : file_(file), index_(index), rows_(rows), text_(orderingField(index)) {
        const auto isThis = [&](const auto& entry) { return packName(entry.name) == index.name; };
        if (std::any_of(kLocationIndexes.begin(), kLocationIndexes.end(), isThis)) {
            lat_ = index.table->field(packName("LAT"));
            lon_ = index.table->field(packName("LON"));
        }
    }

    /// Empty, or what is wrong.
    [[nodiscard]] std::string run() {
        if (index_.dataLength % index_.table->rowSize != 0)
            return "Index " + unpackName(index_.name) + ": no whole number of rows";
        RowOrder last;
        for (std::uint32_t row = 0; row < index_.rowCount(); ++row) {
            if (!rows_.load(index_, row))
                return at(row, "cannot be read");
            if (!textsAreInside())
                return at(row, "text outside the file");
            RowOrder order = orderOfRow();
            if (row > 0 && order < last)
                return at(row, "out of order");
            last = std::move(order);
        }
        return {};
    }

 private:
    [[nodiscard]] std::string at(std::uint32_t row, std::string_view what) const {
        return "Index " + unpackName(index_.name) + ", row " + std::to_string(row) + ": " +
               std::string(what);
    }
    [[nodiscard]] bool textsAreInside() const {
        return std::all_of(
            index_.table->fields.begin(), index_.table->fields.end(),
            [this](const auto& field) {
                if (field.type != FieldType::Text && field.type != FieldType::MarkedText)
                    return true;
                const auto offset = static_cast<std::uint32_t>(rows_.word(&field).value_or(0));
                return offset == 0 ||
                       std::uint64_t{file_.header().stringArea} + offset < file_.size();
            });
    }
    [[nodiscard]] RowOrder orderOfRow() {
        RowOrder order;
        rows_.text(text_, order.text);
        if (lat_ != nullptr && lon_ != nullptr) {
            order.cell = cellOfStored(rows_.word(lon_).value_or(0));
            order.lat = rows_.word(lat_).value_or(0);
        }
        return order;
    }

    const DatabaseFile& file_;
    const IndexEntry& index_;
    RowReader& rows_;
    const FieldEntry* text_;
    const FieldEntry* lat_ = nullptr;
    const FieldEntry* lon_ = nullptr;
};

bool gridLeadsIntoTheFile(const DatabaseFile& file) {
    return std::all_of(
        file.gridWords().begin(), file.gridWords().end(),
        [&](std::uint32_t word) { return word < file.size(); });
}

}  // namespace

std::string verifyDatabase(const std::filesystem::path& path, const Clock& clock,
                           FileSystem& disk) {
    DatabaseFile file;
    if (std::string message = file.Open(path, clock, {}, disk); !message.empty())
        return message;
    const auto rows = file.rows();
    for (const IndexEntry& index : file.directory().indexes())
        if (std::string message = IndexWalk(file, index, *rows).run(); !message.empty())
            return message;
    return gridLeadsIntoTheFile(file) ? std::string() : "Area grid: offset outside the file";
}

}  // namespace korvel
