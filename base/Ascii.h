#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace korvel {

// Letters, blanks and digits of ASCII, the same whatever the user's locale; other bytes stay as
// they are.

constexpr char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr char upperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string inSmallLetters(std::string_view text);
std::string inCapitals(std::string_view text);

constexpr bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, upperAscii, upperAscii);
}
constexpr bool startsWithIgnoringCase(std::string_view text, std::string_view beginning) {
    return equalsIgnoringCase(text.substr(0, beginning.size()), beginning);
}
constexpr bool endsWithIgnoringCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           equalsIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

/// Without the characters of `blanks` at its end, its beginning, or both.
std::string_view trimmedRight(std::string_view text, std::string_view blanks = " \t");
std::string_view trimmedLeft(std::string_view text, std::string_view blanks = " \t");
std::string_view trimmed(std::string_view text, std::string_view blanks = " \t");

/// 7 with two digits is "07"; for numbers that are not negative.
std::string zeroPadded(long long value, std::size_t digits);
/// "7.5" with the width 4 is "07.5".
std::string zeroPadded(std::string number, std::size_t width);

}  // namespace korvel
