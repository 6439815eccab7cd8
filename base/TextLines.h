#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace korvel {

/// A text's lines without their ends, be they LF, CR LF or CR CR LF, and without a byte-order mark.
class TextLines {
 public:
    explicit TextLines(std::string_view text) : rest_(text) {
        constexpr std::string_view kMark = "\xEF\xBB\xBF";
        if (rest_.starts_with(kMark))
            rest_.remove_prefix(kMark.size());
    }
    bool next(std::string_view& line) {
        if (rest_.empty())
            return false;
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        line = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        while (line.ends_with('\r'))
            line.remove_suffix(1);
        ++number_;
        return true;
    }
    /// Of the line that came last; the first is 1.
    [[nodiscard]] std::size_t number() const { return number_; }

 private:
    std::string_view rest_;
    std::size_t number_ = 0;
};

}  // namespace korvel
