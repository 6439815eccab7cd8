#pragma once

#include <filesystem>
#include <string>

#include "navdb/file/DatabaseFile.h"

namespace korvel {

/// Opens a database file (which tests the checksum that it still holds) and walks through it:
/// every index in order, every offset inside the file. Empty when all is well, else what is not:
/// Open()'s message, or the index and row at fault.
[[nodiscard]] std::string verifyDatabase(const std::filesystem::path& path, const Clock& clock,
                                         FileSystem& disk = systemFileSystem());

}  // namespace korvel
