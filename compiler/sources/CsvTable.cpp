#include "compiler/sources/CsvTable.h"

#include <algorithm>
#include <utility>

#include "base/Ascii.h"

namespace korvel {

CsvTable::CsvTable(std::string name, std::unique_ptr<ByteSource> source, ImportContext& context)
    : name_(std::move(name)), lines_(std::move(source)), context_(context) {}

/// One record, which spans several lines when a quoted field does.
bool CsvTable::readRow() {
    std::string_view line;
    row_.close();
    bool goesOn = true;
    while (goesOn) {
        if (!lines_.next(line))
            return false;
        goesOn = row_.take(line) && row_.back().size() < LineReader::kLongestLine;
    }
    return true;
}

std::string CsvTable::readHeader(std::span<const std::string_view> required) {
    if (!readRow())
        return lines_.failed() ? failure() : name_ + ": the file is empty";
    columns_.clear();
    for (std::size_t i = 0; i < row_.size(); ++i)
        columns_.emplace_back(row_[i]);
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
        if (row_.size() >= expected)
            return true;
        if (row_.size() > 1 || !row_[0].empty())
            malformed("fewer fields than columns");
    }
    return false;
}

std::string_view CsvTable::operator[](std::string_view column) const {
    const auto found = std::find(columns_.begin(), columns_.end(), column);
    const auto index = static_cast<std::size_t>(found - columns_.begin());
    return trimmed(row_[index]);
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
