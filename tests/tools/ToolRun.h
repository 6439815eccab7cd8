#pragma once

#include <string>
#include <vector>

#include "TempFolder.h"
#include "system/ChildProgram.h"

namespace korvel {

struct ToolResult {
    int status = -1;
    std::string output;
    std::string errors;
};

/// Runs korvelctl with these arguments, each handed over as it is, and nothing to read.
inline ToolResult runTool(const std::vector<std::string>& arguments) {
    const TempFolder folder;
    const int status = runProgram(pathOf(KORVELCTL), arguments, folder / "output", folder / "errors");
    return {status, folder.read("output"), folder.read("errors")};
}

}  // namespace korvel
