#include "base/AsciiText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "base/Ascii.h"
#include "base/Utf8.h"

namespace korvel {

namespace {

constexpr char32_t kFirstLetter = 0xC0;

// clang-format off
/// Latin-1 and Latin Extended-A letters without their marks.
constexpr std::array<std::string_view, 0xC0> kLetters{
    "A", "A", "A", "A", "A", "A", "AE", "C", "E", "E", "E", "E", "I", "I", "I", "I",  // U+00C0
    "D", "N", "O", "O", "O", "O", "O", "x", "O", "U", "U", "U", "U", "Y", "Th", "ss",  // U+00D0
    "a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i", "i",  // U+00E0
    "d", "n", "o", "o", "o", "o", "o", "/", "o", "u", "u", "u", "u", "y", "th", "y",  // U+00F0
    "A", "a", "A", "a", "A", "a", "C", "c", "C", "c", "C", "c", "C", "c", "D", "d",  // U+0100
    "D", "d", "E", "e", "E", "e", "E", "e", "E", "e", "E", "e", "G", "g", "G", "g",  // U+0110
    "G", "g", "G", "g", "H", "h", "H", "h", "I", "i", "I", "i", "I", "i", "I", "i",  // U+0120
    "I", "i", "IJ", "ij", "J", "j", "K", "k", "k", "L", "l", "L", "l", "L", "l", "L",  // U+0130
    "l", "L", "l", "N", "n", "N", "n", "N", "n", "n", "N", "n", "O", "o", "O", "o",  // U+0140
    "O", "o", "OE", "oe", "R", "r", "R", "r", "R", "r", "S", "s", "S", "s", "S", "s",  // U+0150
    "S", "s", "T", "t", "T", "t", "T", "t", "U", "u", "U", "u", "U", "u", "U", "u",  // U+0160
    "U", "u", "U", "u", "W", "w", "Y", "y", "Y", "Z", "z", "Z", "z", "Z", "z", "s",  // U+0170
};
// clang-format on

struct Range {
    char32_t first;
    char32_t last;
    /// What the even characters of the range become; the odd ones become its small letters.
    std::string_view plain;
};

/// Beyond the table: typographic marks, and letters of names from Viet Nam, Romania and others.
constexpr std::array kRanges{
    Range{0x00A0, 0x00A0, " "},   Range{0x00AB, 0x00AB, "\""}, Range{0x00BB, 0x00BB, "\""},
    Range{0x00B4, 0x00B4, "'"},   Range{0x00AD, 0x00AD, ""},   Range{0x00B0, 0x00B0, ""},
    Range{0x00B7, 0x00B7, "-"},   Range{0x00BA, 0x00BA, "o"},  Range{0x00AA, 0x00AA, "a"},
    Range{0x018F, 0x018F, "E"},   Range{0x0259, 0x0259, "e"},  Range{0x01A0, 0x01A1, "O"},
    Range{0x01AF, 0x01AF, "U"},   Range{0x01B0, 0x01B0, "u"},  Range{0x0218, 0x0219, "S"},
    Range{0x021A, 0x021B, "T"},   Range{0x02B9, 0x02C8, "'"},  Range{0x0300, 0x036F, ""},
    Range{0x1EA0, 0x1EB7, "A"},   Range{0x1EB8, 0x1EC7, "E"},  Range{0x1EC8, 0x1ECB, "I"},
    Range{0x1ECC, 0x1EE3, "O"},   Range{0x1EE4, 0x1EF1, "U"},  Range{0x1EF2, 0x1EF9, "Y"},
    Range{0x2010, 0x2015, "-"},   Range{0x2018, 0x201B, "'"},  Range{0x201C, 0x201F, "\""},
    Range{0x2026, 0x2026, "..."},
};

void appendPlain(char32_t c, std::string& out) {
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    if (c >= kFirstLetter && c < kFirstLetter + kLetters.size()) {
        out += kLetters.at(c - kFirstLetter);
        return;
    }
    const auto* const range = std::find_if(kRanges.begin(), kRanges.end(), [c](const Range& r) {
        return c >= r.first && c <= r.last;
    });
    if (range == kRanges.end()) {
        out += '?';
        return;
    }
    const bool small = range->first != range->last && c % 2 == 1;
    for (const char letter : range->plain)
        out += small ? lowerAscii(letter) : letter;
}

bool isBlankOrControl(char c) { return static_cast<std::uint8_t>(c) <= 0x20 || c == 0x7F; }

}  // namespace

std::string toAsciiText(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    while (!text.empty())
        appendPlain(takeCodePoint(text), folded);
    std::string out;
    out.reserve(folded.size());
    for (const char c : folded)
        if (!isBlankOrControl(c))
            out += c;
        else if (!out.empty() && out.back() != ' ')
            out += ' ';
    if (!out.empty() && out.back() == ' ')
        out.pop_back();
    return out;
}

bool isIdentifier(std::string_view text) {
    constexpr std::size_t kLongest = 11;
    return !text.empty() && text.size() <= kLongest &&
           std::all_of(text.begin(), text.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                      c == '-' || c == '_' || c == '/' || c == '.';
           });
}

}  // namespace korvel
