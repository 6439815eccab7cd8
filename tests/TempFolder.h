#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/FileIo.h"

namespace korvel {

/// A folder of a test's or benchmark's own, empty at the start and gone at the end.
class TempFolder {
 public:
    TempFolder() {
        std::string name = std::filesystem::temp_directory_path() / "korvel-test-XXXXXX";
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test: " + name);
        path_ = name;
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }
    std::string read(std::string_view name) const { return readWholeFile(path_ / name).value_or("(no file)"); }
    bool has(std::string_view name) const { return std::filesystem::exists(path_ / name); }

    /// Writes a file of the folder, and the folders on the way to it.
    std::filesystem::path write(std::string_view name, std::string_view bytes) const {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }

 private:
    std::filesystem::path path_;
};

}  // namespace korvel
