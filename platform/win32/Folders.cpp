#include "platform/Folders.h"

#include <memory>
#include <string>
#include <system_error>
// The system's header before those that stand on it.
// clang-format off
#include <windows.h>
#include <shlobj.h>
// clang-format on

#include "platform/SystemFolders.h"
#include "platform/win32/Handle.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* kProgramName = L"Korvel Pro";
constexpr std::size_t kLongestPath = 32768;

/// Empty when there is none.
fs::path knownFolder(const KNOWNFOLDERID& id) {
    wchar_t* path = nullptr;
    const bool known = SHGetKnownFolderPath(id, KF_FLAG_DEFAULT, nullptr, &path) == S_OK;
    const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owner(path, &CoTaskMemFree);
    return known ? fs::path(path) : fs::path();
}

/// Only making a file tells: the access lists say little under user account control.
bool canBeWritten(const fs::path& folder) {
    const fs::path probe = folder / (L"~korvel." + std::to_wstring(GetCurrentProcessId()));
    const Handle file(CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    return static_cast<bool>(file);
}

/// What was installed is left alone, so that it can be removed or replaced as a whole.
bool belongsToInstaller(const fs::path& folder) {
    std::error_code error;
    return fs::exists(folder / "uninstall.exe", error);
}

}  // namespace

fs::path executableFolder() {
    std::wstring path(kLongestPath, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    path.resize(length);
    return fs::path(path).parent_path();
}

fs::path systemProgramFolder(const fs::path& own) {
    const fs::path base = knownFolder(FOLDERID_RoamingAppData);
    if (base.empty() || (!belongsToInstaller(own) && canBeWritten(own)))
        return own;
    fs::path folder = base / kProgramName;
    std::error_code error;
    fs::create_directories(folder, error);
    return folder;
}

fs::path systemDocumentsFolder() { return knownFolder(FOLDERID_Documents); }

}  // namespace korvel
