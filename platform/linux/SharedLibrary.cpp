#include "platform/SharedLibrary.h"

#include <dlfcn.h>

namespace korvel {

std::string_view SharedLibrary::suffix() { return ".so"; }

SharedLibrary::~SharedLibrary() { unload(); }

std::string SharedLibrary::load(const std::filesystem::path& path) {
    unload();
    handle_ = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle_ != nullptr)
        return {};
    const char* const error = ::dlerror();
    return error != nullptr ? error : path.string();
}

void SharedLibrary::unload() {
    if (handle_ != nullptr)
        ::dlclose(handle_);
    handle_ = nullptr;
}

SharedLibrary::Symbol SharedLibrary::symbol(const char* name) const {
    return handle_ == nullptr ? nullptr : reinterpret_cast<Symbol>(::dlsym(handle_, name));
}

}  // namespace korvel
