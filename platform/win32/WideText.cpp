#include "platform/win32/WideText.h"

#include <windows.h>

namespace korvel {

std::wstring wideText(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    const int count = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(count), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), count);
    return wide;
}

std::string narrowText(std::wstring_view wide) {
    const int size = static_cast<int>(wide.size());
    const int count =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(count), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), count, nullptr, nullptr);
    return utf8;
}

}  // namespace korvel
