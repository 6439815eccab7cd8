#include "platform/SharedLibrary.h"

#include <system_error>
#include <windows.h>

namespace korvel {

std::string_view SharedLibrary::suffix() { return ".dll"; }

SharedLibrary::~SharedLibrary() { unload(); }

std::string SharedLibrary::load(const std::filesystem::path& path) {
    unload();
    handle_ = LoadLibraryW(path.c_str());
    return handle_ != nullptr ? std::string()
                              : std::system_category().message(static_cast<int>(GetLastError()));
}

void SharedLibrary::unload() {
    if (handle_ != nullptr)
        FreeLibrary(static_cast<HMODULE>(handle_));
    handle_ = nullptr;
}

SharedLibrary::Symbol SharedLibrary::symbol(const char* name) const {
    return handle_ == nullptr
               ? nullptr
               : reinterpret_cast<Symbol>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

}  // namespace korvel
