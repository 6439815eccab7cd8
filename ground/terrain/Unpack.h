#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvel {

/// The only file in a ".zip" or ".gz", or the bytes themselves when they are neither. Nothing when
/// they are damaged or would be larger than `limit`.
std::optional<std::string> unpacked(std::string_view bytes, std::size_t limit);

}  // namespace korvel
