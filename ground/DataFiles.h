#pragma once

#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

namespace korvel {

/// The files of some folders whose names end with one of `endings`, in capitals or not: the earlier
/// folder's first, by name. Folders that are not there hold none.
std::vector<std::filesystem::path> dataFiles(std::span<const std::filesystem::path> folders,
                                             std::span<const std::string_view> endings);

}  // namespace korvel
