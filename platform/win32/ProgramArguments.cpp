#include "platform/ProgramArguments.h"

#include <memory>
// The system's header before those that stand on it.
// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

#include "platform/win32/WideText.h"

namespace korvel {

std::vector<std::string> programArguments(int argc, const char* const* argv) {
    int count = 0;
    const std::unique_ptr<wchar_t*[], decltype(&LocalFree)> wide(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    if (!wide)
        return {argv, argv + argc};
    std::vector<std::string> arguments;
    arguments.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        arguments.push_back(narrowText(wide[static_cast<std::size_t>(i)]));
    return arguments;
}

}  // namespace korvel
