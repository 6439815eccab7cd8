#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

#include <gtest/gtest.h>

namespace korvel {

/// A folder of the running test's own that goes away with it.
class TemporaryFolder {
 public:
    TemporaryFolder() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = testing::TempDir() + test->test_suite_name() + "." + test->name();
        for (int i = 0; !std::filesystem::create_directory(path_ = name + std::to_string(i)); ++i) {
        }
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }

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
