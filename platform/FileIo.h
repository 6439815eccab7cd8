#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace korvel {

/// The whole file, or its first `limit` bytes. Nothing when it cannot be opened or read.
std::optional<std::string> readWholeFile(const std::filesystem::path& path,
                                         std::size_t limit = static_cast<std::size_t>(-1));

/// Replaces the file by `bytes`: written to a temporary file beside it, flushed to the device and
/// renamed over it, so that a power cut leaves the old file or the new one. False on failure, and
/// then the old file is untouched and no temporary file is left.
[[nodiscard]] bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes);

}  // namespace korvel
