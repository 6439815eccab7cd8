#pragma once

#include <optional>
#include <string_view>

namespace korvel {

/// Takes one character off the front. Nothing, and nothing is taken, where the text is empty or
/// does not begin with a well-formed one: neither longer than it has to be nor a surrogate.
std::optional<char32_t> takeUtf8(std::string_view& text);

bool isUtf8(std::string_view text);

}  // namespace korvel
