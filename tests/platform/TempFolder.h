#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>

#include <gtest/gtest.h>

namespace korvel {

/// An empty folder of the running test, removed with all that is in it.
class TempFolder {
 public:
    TempFolder() {
        const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
        path_ = std::filesystem::path(testing::TempDir()) / (std::string("korvel-") + test->test_suite_name() + "-" +
                                                             test->name() + "-" + std::to_string(getpid()));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }

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
