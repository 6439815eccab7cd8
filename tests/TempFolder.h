#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "platform/FileIo.h"
#include "platform/PathText.h"

namespace korvel {

/// A folder of a test's or benchmark's own, empty at the start and gone at the end.
class TempFolder {
 public:
    TempFolder() {
        std::random_device number;
        do path_ = std::filesystem::temp_directory_path() / ("korvel-test-" + std::to_string(number()));
        while (!std::filesystem::create_directory(path_));
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / pathOf(name); }
    std::string read(std::string_view name) const { return readWholeFile(*this / name).value_or("(no file)"); }
    bool has(std::string_view name) const { return std::filesystem::exists(*this / name); }

    /// Writes a file of the folder, and the folders on the way to it.
    std::filesystem::path write(std::string_view name, std::string_view bytes) const {
        std::filesystem::path file = *this / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }

 private:
    std::filesystem::path path_;
};

}  // namespace korvel
