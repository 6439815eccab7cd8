#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvel {

/// A library that is loaded while the program runs, and unloaded when this goes.
class SharedLibrary {
 public:
    /// What the names of such libraries end in on this system, with the dot.
    static std::string_view suffix();

    /// None is loaded.
    SharedLibrary() = default;
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;
    ~SharedLibrary();

    /// Loads the library in place of the one before; runs what it does when it is loaded. Returns
    /// the system's error text, empty on success.
    [[nodiscard]] std::string load(const std::filesystem::path& path);
    void unload();

    /// The exported function of that name; null when there is none. It is only good while the
    /// library is loaded, and nobody checks that it is of this type.
    template <class Function>
    [[nodiscard]] Function* function(const char* name) const {
        return reinterpret_cast<Function*>(symbol(name));
    }

 private:
    using Symbol = void (*)();
    [[nodiscard]] Symbol symbol(const char* name) const;

    void* handle_ = nullptr;
};

}  // namespace korvel
