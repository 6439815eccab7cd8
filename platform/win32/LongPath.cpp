#include "platform/win32/LongPath.h"

#include <windows.h>

namespace korvel {
namespace {

/// A folder's name has to leave room for a short file name.
constexpr std::size_t kLongestUsual = MAX_PATH - 14;

/// Absolute and with backslashes alone, which the other form wants.
std::wstring fullPath(const std::wstring& path) {
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

}  // namespace

std::wstring longPath(const std::filesystem::path& path) {
    const std::wstring& usual = path.native();
    if (usual.starts_with(LR"(\\?\)") || usual.starts_with(LR"(\\.\)"))
        return usual;
    std::wstring full = fullPath(usual);
    if (full.size() < kLongestUsual)
        return usual;
    return full.starts_with(LR"(\\)") ? LR"(\\?\UNC\)" + full.substr(2) : LR"(\\?\)" + full;
}

}  // namespace korvel
