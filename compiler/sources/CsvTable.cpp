#include "compiler/sources/CsvTable.h"

#include <algorithm>
#include <utility>

#include "base/Ascii.h"

namespace korvel {

CsvTable::CsvTable(std::string name, std::unique_ptr<ByteSource> source, ImportContext& context)
    : name_(std::move(name)), lines_(std::move(source)), context_(context) {}

/// Appends the line's fields to the row, or its beginning to the field whose quotes are open.
void CsvTable::splitLine(std::string_view line, bool& inQuotes) {
    const auto open = [this] {
        if (++fields_ > row_.size())
            row_.emplace_back();
        row_[fields_ - 1].clear();
    };
    if (!inQuotes)
        open();
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"') {
            const bool doubled = inQuotes && i + 1 < line.size() && line[i + 1] == '"';
            if (doubled)
                row_[fields_ - 1] += line[++i];
            else
                inQuotes = !inQuotes;
        } else if (c == ',' && !inQuotes) {
            open();
        } else {
            row_[fields_ - 1] += c;
        }
    }
}

/// One record, which spans several lines when a quoted field does.
bool CsvTable::readRow() {
    std::string_view line;
    bool inQuotes = false;
    fields_ = 0;
    do {
        if (!lines_.next(line))
            return false;
        if (inQuotes)
            row_[fields_ - 1] += ' ';
        splitLine(line, inQuotes);
    } while (inQuotes && row_[fields_ - 1].size() < LineReader::kLongestLine);
    return true;
}

std::string CsvTable::readHeader(std::span<const std::string_view> required) {
    if (!readRow())
        return lines_.failed() ? failure() : name_ + ": the file is empty";
    row_.resize(fields_);
    columns_ = std::move(row_);
    row_.clear();
    for (const auto column : required)
        if (std::find(columns_.begin(), columns_.end(), column) == columns_.end())
            return name_ + ": column " + std::string(column) + " is missing";
    return {};
}

bool CsvTable::next() {
    constexpr std::size_t kLinesPerReport = 4096;
    while (readRow()) {
        if (lines_.number() % kLinesPerReport == 0 && context_.progress)
            context_.progress(lines_.share());
        // Some of the headers end with a comma, their rows do not.
        const std::size_t expected =
            columns_.back().empty() ? columns_.size() - 1 : columns_.size();
        if (fields_ >= expected)
            return true;
        if (fields_ > 1 || !row_[0].empty())
            malformed("fewer fields than columns");
    }
    return false;
}

std::string_view CsvTable::operator[](std::string_view column) const {
    const auto found = std::find(columns_.begin(), columns_.end(), column);
    const auto index = static_cast<std::size_t>(found - columns_.begin());
    return index < fields_ ? trimmed(row_[index]) : std::string_view{};
}

void CsvTable::malformed(std::string_view reason) {
    context_.log.malformed(name_, lines_.number(), reason);
}

std::string CsvTable::failure() const {
    if (!lines_.failed())
        return {};
    return name_ + ": reading failed behind line " + std::to_string(lines_.number());
}

}  // namespace korvel
