#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace korvel {

/// The folder of the running executable, writable or not; its `data` folder holds what the
/// program brings with it.
std::filesystem::path executableFolder();

/// Whether the program keeps everything in its own folder, as on a stick that is carried from one
/// computer to the next: a file named `portable` stands there.
bool isPortable(const std::filesystem::path& own = executableFolder());

/// The folder the settings file lives in: the program's own when it is portable, or can be written
/// and was not put there by an installer, else the user's configuration folder for this program
/// (created when missing). No trailing separator.
std::filesystem::path programFolder(const std::filesystem::path& own = executableFolder());

/// The user's documents folder, or an empty path on a system that has none. A portable program has
/// a folder `Documents` of its own (created when missing).
std::filesystem::path documentsFolder(const std::filesystem::path& own = executableFolder());

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
