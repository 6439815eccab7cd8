#pragma once

#include <filesystem>

namespace korvel {

/// A file that is open for reading its bytes, as the C library numbers it: for libraries that take
/// nothing else, and would not find every name themselves. -1 when it cannot be opened. The number
/// is the caller's, who has it closed.
int openFileNumber(const std::filesystem::path& path);

}  // namespace korvel
