#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

namespace korvel {

/// The day (UTC) on which the file or folder was last written to: when it was downloaded or,
/// unpacked, when it was made. Nothing when it is not there.
std::optional<std::chrono::sys_days> fileDate(const std::filesystem::path& path);

/// The day as YYYYMMDD.
int ymdOf(std::chrono::sys_days day);

}  // namespace korvel
