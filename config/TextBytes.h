#pragma once

#include <string>
#include <string_view>

namespace korvel {

/// Single-byte text from the bytes of a text file. The bytes are UTF-16, low byte first, when they
/// begin with FF FE (which is not part of the text) or when their number is even and every second
/// one is 0; of such text the low bytes are taken. All other bytes are the text as they stand.
std::string decodeTextBytes(std::string_view bytes);

}  // namespace korvel
