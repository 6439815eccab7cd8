#include "config/Checklist.h"

#include <cstddef>
#include <utility>

#include "base/Ascii.h"
#include "base/TextLines.h"
#include "base/Utf8.h"

namespace korvel {
namespace {

constexpr std::size_t kMostRows = 1000;
constexpr std::size_t kLongestWords = 160;  // bytes

/// What can be shown of it: no control characters, whole letters, and not too many.
std::string shown(std::string_view words) {
    constexpr char kDelete = '\x7F';
    constexpr unsigned char kFirstBeyondAscii = 0x80;
    const bool readable = isUtf8(words);
    std::string text;
    while (!words.empty()) {
        const std::size_t before = words.size();
        if (!readable || !takeUtf8(words))
            words.remove_prefix(1);
        const std::string_view letter(words.data() - (before - words.size()),
                                      before - words.size());
        if (text.size() + letter.size() > kLongestWords)
            break;
        const auto byte = static_cast<unsigned char>(letter.front());
        if (letter.size() == 1 && byte >= kFirstBeyondAscii)
            text += '?';
        else if (byte >= ' ' && letter.front() != kDelete)
            text += letter;
    }
    return text;
}

Checklist::Row rowOf(std::string_view line) {
    if (line.front() == '[' && line.back() == ']')
        return {.words = shown(trimmed(line.substr(1, line.size() - 2))), .heading = true};
    const std::size_t colon = line.find(':');
    Checklist::Row row{.words = shown(trimmed(line.substr(0, colon)))};
    if (colon != std::string_view::npos)
        row.response = shown(trimmed(line.substr(colon + 1)));
    return row;
}

}  // namespace

Checklist Checklist::read(std::string_view title, std::string_view text) {
    Checklist list{.title = shown(title), .rows = {}};
    if (list.title.empty())
        list.title = "?";
    TextLines lines(text);
    for (std::string_view line; lines.next(line) && list.rows.size() < kMostRows;) {
        line = trimmed(line);
        if (line.empty() || line.front() == '#')
            continue;
        if (Row row = rowOf(line); !row.words.empty())
            list.rows.push_back(std::move(row));
    }
    return list;
}

}  // namespace korvel
