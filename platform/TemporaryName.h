#pragma once

#include <string>
#include <string_view>

namespace korvel {

/// What a file is called until it is whole and gets the name it was written for. Nobody else names
/// files so: what a process that was killed has left behind is known by it. It is short, whatever
/// the length of the name to come.
inline std::string temporaryName(unsigned long process, int attempt) {
    return ".korvel-" + std::to_string(process) + '-' + std::to_string(attempt) + ".tmp";
}

/// For findFiles().
inline constexpr std::string_view kTemporaryPattern = ".korvel-*.tmp";

}  // namespace korvel
