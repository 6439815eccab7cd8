#include "config/EscapedText.h"

#include <charconv>
#include <optional>

namespace korvel {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::optional<unsigned> hexByte(std::string_view digits) {
    unsigned byte = 0;
    const auto* const end = digits.data() + digits.size();
    const bool whole = std::from_chars(digits.data(), end, byte, 16).ptr == end;
    return digits.size() == 2 && whole ? std::optional(byte) : std::nullopt;
}

}  // namespace

std::string escaped(std::string_view text, std::string_view also) {
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        // White space at the ends would not come back.
        const bool isAtEnd = c == ' ' && (i == 0 || i + 1 == text.size());
        const bool isPlain = c >= ' ' && c <= '~' && c != ';' && c != '%' && !isAtEnd;
        if (isPlain && also.find(c) == std::string_view::npos) {
            value += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            value.append({'%', kHexDigits[byte >> 4U], kHexDigits[byte & 15U]});
        }
    }
    return value;
}

std::string unescaped(std::string_view value) {
    std::string text;
    while (!value.empty()) {
        const auto byte = value.front() == '%' ? hexByte(value.substr(1, 2)) : std::nullopt;
        text += byte ? static_cast<char>(*byte) : value.front();
        value.remove_prefix(byte ? 3 : 1);
    }
    return text;
}

}  // namespace korvel
