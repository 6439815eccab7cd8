#pragma once

#include <string>
#include <string_view>

namespace korvel {

/// A text of any bytes as a value that the profile can hold, which keeps seven bits of each byte
/// and ends a value at a semicolon: what it cannot hold, and the characters in `also`, are written
/// as '%' with two hexadecimal digits.
std::string escaped(std::string_view text, std::string_view also = {});

/// The text again. A '%' without two hexadecimal digits stands for itself.
std::string unescaped(std::string_view value);

}  // namespace korvel
