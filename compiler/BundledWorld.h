#pragma once

#include <filesystem>
#include <string>

#include "compiler/NavdbBuild.h"

namespace korvel {

/// Compiles what the program brings along from the open data in `sources` into `folder`. Two
/// databases, since what they are made from is not of one age: world.ng2 with airports and navaids
/// of today, airways.ng2 with fixes and airways of an older cycle; and the towns, world.twn. The
/// result is empty, or why one is refused.
[[nodiscard]] std::string buildBundledWorld(const std::filesystem::path& sources,
                                            const std::filesystem::path& folder, ImportLog& log,
                                            const BuildProgress& progress = {});

}  // namespace korvel
