#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace korvel {

inline constexpr auto kWholeFile = static_cast<std::size_t>(-1);

/// The whole file, or its first `limit` bytes. Nothing when it cannot be opened or read.
std::optional<std::string> readWholeFile(const std::filesystem::path& path,
                                         std::size_t limit = kWholeFile,
                                         FileSystem& disk = systemFileSystem());

/// Replaces the file by `bytes`: written to a temporary file beside it, flushed to the device and
/// renamed over it, so that a power cut leaves the old file or the new one. A link stays a link
/// when the file behind it is replaced. False on failure, and then the old file is untouched and no
/// temporary file is left.
[[nodiscard]] bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                                       FileSystem& disk = systemFileSystem());

}  // namespace korvel
