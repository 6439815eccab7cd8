#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

namespace korvel {

// How the files of each kind end, and the size beyond which one is something else: the rest of it
// is not read. The FAA's file of obstacles of the whole United States has some 80 MB.
inline constexpr std::array<std::string_view, 3> kAirspaceEndings{".txt", ".air", ".openair"};
inline constexpr std::size_t kLargestAirspaceFile = std::size_t{32} << 20U;
inline constexpr std::array<std::string_view, 3> kObstacleEndings{".csv", ".dat", ".txt"};
inline constexpr std::size_t kLargestObstacleFile = std::size_t{256} << 20U;

/// The files of some folders whose names end with one of `endings`, in capitals or not: the earlier
/// folder's first, by name. Folders that are not there hold none.
std::vector<std::filesystem::path> dataFiles(std::span<const std::filesystem::path> folders,
                                             std::span<const std::string_view> endings);

}  // namespace korvel
