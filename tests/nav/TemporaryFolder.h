#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/FileIo.h"

namespace korvel {

/// A folder that is there as long as the object.
class TemporaryFolder {
 public:
    TemporaryFolder() {
        std::string pattern = testing::TempDir() + "korvel-XXXXXX";
        path_ = mkdtemp(pattern.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }
    std::string read(std::string_view name) const {
        return readWholeFile(path_ / name).value_or("(no file)");
    }
    void write(std::string_view name, std::string_view bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }
    bool has(std::string_view name) const { return std::filesystem::exists(path_ / name); }

 private:
    std::filesystem::path path_;
};

}  // namespace korvel
