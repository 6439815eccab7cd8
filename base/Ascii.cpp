#include "base/Ascii.h"

#include "base/TextNumbers.h"

namespace korvel {

std::string inSmallLetters(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lowerAscii);
    return result;
}

std::string inCapitals(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), upperAscii);
    return result;
}

std::string_view trimmedRight(std::string_view text, std::string_view blanks) {
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string_view trimmedLeft(std::string_view text, std::string_view blanks) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text;
}

std::string_view trimmed(std::string_view text, std::string_view blanks) {
    return trimmedLeft(trimmedRight(text, blanks), blanks);
}

std::string zeroPadded(long long value, std::size_t digits) {
    return zeroPadded(formatInt(value), digits);
}

std::string zeroPadded(std::string number, std::size_t width) {
    if (number.size() < width)
        number.insert(0, width - number.size(), '0');
    return number;
}

}  // namespace korvel
