#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// The fields of one record of comma-separated values (RFC 4180): fields in quotes may hold commas,
/// doubled quotes and line ends. One object serves a whole file, so that its records allocate next
/// to nothing.
class CsvFields {
 public:
    /// Takes a line: the first one of a record, or one that goes on with the field whose quotes the
    /// lines before it left open, with a blank for the line end. True while quotes are open.
    bool take(std::string_view line);
    /// Where quotes are open, they are no more: what comes next begins a record.
    void close() { inQuotes_ = false; }

    [[nodiscard]] std::size_t size() const { return count_; }
    /// Field `i` as it stands in the file, its quotes taken off; empty past the last one.
    [[nodiscard]] std::string_view operator[](std::size_t i) const {
        return i < count_ ? std::string_view(fields_[i]) : std::string_view{};
    }
    [[nodiscard]] std::string_view back() const { return (*this)[count_ - 1]; }

 private:
    void open();

    std::vector<std::string> fields_;
    std::size_t count_ = 0;
    bool inQuotes_ = false;
};

}  // namespace korvel
