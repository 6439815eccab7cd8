#include "platform/Folders.h"

#include <cstdlib>
#include <optional>
#include <string>
#include <system_error>
#include <unistd.h>

#include "platform/FileIo.h"
#include "platform/SystemFolders.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kProgramName = "korvel-pro";

/// An absolute path from the environment; the base directory rules ignore relative ones.
std::optional<fs::path> environmentFolder(const char* variable) {
    const char* value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): never set
    if (value == nullptr || *value != '/')
        return std::nullopt;
    return fs::path(value);
}

std::optional<fs::path> configurationBase() {
    if (auto base = environmentFolder("XDG_CONFIG_HOME"))
        return base;
    if (const auto home = environmentFolder("HOME"))
        return *home / ".config";
    return std::nullopt;
}

/// The documents folder that the desktop's user-dirs.dirs names; its lines read
/// XDG_DOCUMENTS_DIR="$HOME/Documents", with an absolute path or one that starts with $HOME.
std::optional<fs::path> configuredDocuments(const fs::path& home) {
    const auto base = configurationBase();
    const auto text = base ? readWholeFile(*base / "user-dirs.dirs", 65536) : std::nullopt;
    if (!text)
        return std::nullopt;
    constexpr std::string_view kKey = "XDG_DOCUMENTS_DIR=\"";
    std::size_t start = text->find(kKey);
    while (start != std::string::npos && start != 0 && (*text)[start - 1] != '\n')
        start = text->find(kKey, start + 1);  // commented out
    if (start == std::string::npos)
        return std::nullopt;
    start += kKey.size();
    const std::string value = text->substr(start, text->find('"', start) - start);
    constexpr std::string_view kHome = "$HOME/";
    if (value.starts_with(kHome))
        return home / value.substr(kHome.size());
    return value.starts_with('/') ? std::optional<fs::path>(value) : std::nullopt;
}

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

/// A package's folder stays as it was installed, also where a superuser could write into it.
bool belongsToPackage(const fs::path& folder) { return folder.string().starts_with("/usr/"); }

}  // namespace

fs::path executableFolder() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path(error) : executable.parent_path();
}

fs::path systemProgramFolder(const fs::path& own) {
    const auto base = configurationBase();
    const bool isOwn = !belongsToPackage(own) && ::access(own.c_str(), W_OK | X_OK) == 0;
    if (isOwn || !base)
        return own;
    fs::path folder = *base / kProgramName;
    std::error_code error;
    fs::create_directories(folder, error);
    return folder;
}

fs::path systemDocumentsFolder() {
    const auto home = environmentFolder("HOME");
    if (!home)
        return {};
    if (const auto configured = configuredDocuments(*home); configured && isFolder(*configured))
        return *configured;
    const fs::path usual = *home / "Documents";
    return isFolder(usual) ? usual : fs::path();
}

}  // namespace korvel
