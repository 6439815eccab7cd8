#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/CsvFields.h"
#include "compiler/sources/XPlaneFile.h"

namespace korvel {

/// A comma-separated file whose first line names the columns. Fields in quotes may hold commas,
/// line ends and doubled quotes.
class CsvTable {
 public:
    CsvTable(std::string name, std::unique_ptr<ByteSource> source, ImportContext& context);

    /// Reads the first line. Empty on success, else which column is missing. Columns may come in
    /// any order; those that are neither asked for here nor there do not matter.
    [[nodiscard]] std::string readHeader(std::span<const std::string_view> required);

    /// The next row; a row with fewer fields than the header is reported and skipped. False at the
    /// end.
    bool next();
    /// The row's field of that column, trimmed; empty when the file has no such column.
    [[nodiscard]] std::string_view operator[](std::string_view column) const;
    /// Reports the row that next() gave last as malformed, by the line on which it ends.
    void malformed(std::string_view reason);
    /// After next() gave false: empty, or that reading failed.
    [[nodiscard]] std::string failure() const;

 private:
    bool readRow();

    std::string name_;
    LineReader lines_;
    ImportContext& context_;
    std::vector<std::string> columns_;
    CsvFields row_;
};

}  // namespace korvel
