#include "base/Utf8.h"

#include <array>
#include <cstddef>

namespace korvel {
namespace {

// By the number of bytes that follow the first.
constexpr std::array<std::uint32_t, 4> kLowest{0, 0x80, 0x800, 0x10000};

std::size_t followers(unsigned char lead) { return lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1; }

bool isCharacter(std::uint32_t c, std::size_t following) {
    const bool isSurrogate = c >= 0xD800 && c <= 0xDFFF;
    return c >= kLowest.at(following) && c <= 0x10FFFF && !isSurrogate;
}

}  // namespace

std::optional<std::uint32_t> takeUtf8(std::string_view& text) {
    if (text.empty())
        return std::nullopt;
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t following = byte(0) < 0x80 ? 0 : followers(byte(0));
    if ((byte(0) >= 0x80 && byte(0) < 0xC0) || byte(0) >= 0xF8 || text.size() <= following)
        return std::nullopt;
    std::uint32_t c = following == 0 ? byte(0) : byte(0) & (0x3FU >> following);
    for (std::size_t i = 1; i <= following; ++i) {
        if ((byte(i) & 0xC0U) != 0x80)
            return std::nullopt;
        c = (c << 6U) | (byte(i) & 0x3FU);
    }
    if (!isCharacter(c, following))
        return std::nullopt;
    text.remove_prefix(following + 1);
    return c;
}

std::uint32_t takeCodePoint(std::string_view& text) {
    if (const auto code = takeUtf8(text))
        return *code;
    const auto byte = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    return byte;
}

bool isUtf8(std::string_view text) {
    while (!text.empty())
        if (!takeUtf8(text))
            return false;
    return true;
}

}  // namespace korvel
