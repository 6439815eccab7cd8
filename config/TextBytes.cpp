#include "config/TextBytes.h"

#include <cstddef>

namespace korvel {
namespace {

constexpr std::string_view kByteOrderMark = "\xFF\xFE";

bool hasOnlyZeroHighBytes(std::string_view bytes) {
    if (bytes.size() % 2 != 0)
        return false;
    for (std::size_t i = 1; i < bytes.size(); i += 2)
        if (bytes[i] != '\0')
            return false;
    return true;
}

}  // namespace

std::string decodeTextBytes(std::string_view bytes) {
    const bool marked = bytes.starts_with(kByteOrderMark);
    if (!marked && !hasOnlyZeroHighBytes(bytes))
        return std::string(bytes);
    if (marked)
        bytes.remove_prefix(kByteOrderMark.size());
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)  // half a character at the end is none
        text += bytes[i];
    return text;
}

}  // namespace korvel
