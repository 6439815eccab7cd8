#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace korvel {

/// The folder the settings file lives in: the executable's own when it can be written, else the
/// user's configuration folder for this program (created when missing). No trailing separator.
std::filesystem::path programFolder();

/// The folder of the running executable, writable or not; its `data` folder holds what the
/// program brings with it.
std::filesystem::path executableFolder();

/// The user's documents folder, or an empty path on a system that has none.
std::filesystem::path documentsFolder();

/// Where the databases are: the user's documents folder first, then what the program brings.
std::vector<std::filesystem::path> dataFolders();

/// Where the program's plug-ins are: beside the executable.
std::filesystem::path pluginFolder();

/// Full paths of the regular files in `folder` whose names match `pattern` ("*" stands for any run
/// of characters, letters compare without regard to ASCII case), in ascending byte order of their
/// names. Empty when the folder cannot be read.
std::vector<std::filesystem::path> findFiles(const std::filesystem::path& folder,
                                             std::string_view pattern);

}  // namespace korvel
