#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// Shorter ones ("de", "la") are in too many names to be looked for.
inline constexpr std::size_t kShortestNameWord = 3;

/// The words of a name or of what was typed of one, as names are searched by: in capitals, parted
/// at whatever is neither a letter nor a digit, each once, without the short ones.
std::vector<std::string> nameWords(std::string_view text);

/// Whether, for each of `words`, a word of the name begins with it.
bool hasWords(std::string_view name, std::span<const std::string> words);

}  // namespace korvel
