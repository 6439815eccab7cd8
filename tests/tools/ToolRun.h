#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

#include "platform/FileIo.h"

namespace korvel {

struct ToolResult {
    int status = -1;
    std::string output;
    std::string errors;
};

/// Runs korvelctl with these arguments, each handed over as it is, and nothing to read.
inline ToolResult runTool(const std::vector<std::string>& arguments) {
    const std::filesystem::path errors = testing::TempDir() + "korvelctl-errors-" + std::to_string(getpid());
    std::string command = KORVELCTL;
    for (const std::string& argument : arguments) {
        command += " '";
        for (const char c : argument) command += c == '\'' ? std::string("'\\''") : std::string(1, c);
        command += "'";
    }
    command += " < /dev/null 2> '" + errors.string() + "'";
    ToolResult result;
    FILE* pipe = popen(command.c_str(), "r");  // NOLINT(cert-env33-c): our own program
    if (pipe == nullptr) return result;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) result.output.append(buffer, count);
    const int ended = pclose(pipe);
    result.status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
    result.errors = readWholeFile(errors).value_or("");
    std::filesystem::remove(errors);
    return result;
}

}  // namespace korvel
