#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace korvel {

/// Runs a program to its end, with nothing to read; its arguments (UTF-8) reach it as they are. What
/// it writes goes into the two files. Returns its exit code, or -1 when it did not start or was
/// killed.
int runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments,
    const std::filesystem::path& output, const std::filesystem::path& errors);

}  // namespace korvel
