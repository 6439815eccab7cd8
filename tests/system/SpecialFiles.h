#pragma once

#include <filesystem>

namespace korvel {

/// What stands in a folder and is no file. False where the system knows no such thing, or grants it
/// to administrators alone.
bool makePipe(const std::filesystem::path& path);
bool makeLink(const std::filesystem::path& target, const std::filesystem::path& link);

}  // namespace korvel
