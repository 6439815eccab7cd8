#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace korvel {

inline constexpr auto kWholeFile = static_cast<std::size_t>(-1);

/// Something else stands where a file is wanted: a folder, a pipe, a device.
bool isNoFile(const std::filesystem::path& path);

/// The whole file, or its first `limit` bytes. Nothing when it cannot be opened or read.
std::optional<std::string> readWholeFile(const std::filesystem::path& path,
                                         std::size_t limit = kWholeFile,
                                         FileSystem& disk = systemFileSystem());

/// Replaces the file by `bytes`: written to a temporary file beside it, flushed to the device and
/// renamed over it, so that a power cut leaves the old file or the new one. A link stays a link
/// when the file behind it is replaced; what is no file is never replaced. False on failure, and
/// then the old file is untouched and no temporary file is left.
[[nodiscard]] bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                                       FileSystem& disk = systemFileSystem());

/// Removes the temporary files that programs which were killed while they saved have left in a
/// folder. Those of the last minute stay: somebody may be at it.
void clearTemporaries(const std::filesystem::path& folder);

}  // namespace korvel
