#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "navdb/TestDatabase.h"
#include "platform/FileIo.h"

namespace korvel {

/// A folder that is there as long as the object, and what it holds.
struct TemporaryFolder : TestFolder {
    std::filesystem::path operator/(std::string_view name) const { return path() / name; }
    std::string read(std::string_view name) const { return readWholeFile(path() / name).value_or("(no file)"); }
    bool has(std::string_view name) const { return std::filesystem::exists(path() / name); }
};

}  // namespace korvel
