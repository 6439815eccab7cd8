#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvel {

/// The path that a text of ours names: UTF-8, wherever it comes from. To be used for every text
/// that is not plain ASCII in the source: a path that is made of a std::string directly would read
/// it in the system's own character set, which on Windows is another one.
std::filesystem::path pathOf(std::string_view text);

/// A path as text: to show, to write into a file, to hand back to pathOf(). Always separated as the
/// system does; what is no character in a name on Windows becomes U+FFFD.
std::string textOf(const std::filesystem::path& path);

}  // namespace korvel
