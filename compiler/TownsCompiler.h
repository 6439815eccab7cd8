#pragma once

#include <filesystem>
#include <string>

#include "compiler/sources/ImportLog.h"

namespace korvel {

/// Compiles the towns of a places.dat, plain or .gz, into a file that places are found by. The
/// result is empty, or why there is none; then an existing output file is untouched.
[[nodiscard]] std::string buildTowns(const std::filesystem::path& input,
                                     const std::filesystem::path& output, ImportLog& log);

}  // namespace korvel
