#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace korvel {

/// Takes one code point off the front. Nothing, and nothing is taken, where the text is empty or
/// does not begin with a well-formed one: neither longer than it has to be nor a surrogate.
std::optional<std::uint32_t> takeUtf8(std::string_view& text);

/// Takes one code point off the front of `text`, which is not empty. A byte that is no UTF-8
/// stands for itself, as in Latin-1.
std::uint32_t takeCodePoint(std::string_view& text);

bool isUtf8(std::string_view text);

}  // namespace korvel
