#pragma once

#include <filesystem>
#include <string>

namespace korvel {

/// The path as the system's functions take it: one that is longer than they like in the usual form
/// in the form that has no limit.
std::wstring longPath(const std::filesystem::path& path);

}  // namespace korvel
