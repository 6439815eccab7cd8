#include "cockpit/RecentFiles.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "config/ProfileFile.h"

namespace korvel {
namespace {

constexpr std::string_view kSection = "Recent File List";

std::string nameOf(std::size_t index) { return "File" + std::to_string(index + 1); }

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// The store keeps seven bits of each byte and ends a value at a semicolon: what it cannot hold is
/// written as '%' with two hexadecimal digits.
std::string stored(const std::string& text) {
    std::string value;
    for (const char c : text) {
        if (c >= ' ' && c <= '~' && c != ';' && c != '%') {
            value += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            value.append({'%', kHexDigits[byte >> 4U], kHexDigits[byte & 15U]});
        }
    }
    return value;
}

std::optional<unsigned> hexByte(std::string_view digits) {
    unsigned byte = 0;
    const auto* const end = digits.data() + digits.size();
    const bool whole = std::from_chars(digits.data(), end, byte, 16).ptr == end;
    return digits.size() == 2 && whole ? std::optional(byte) : std::nullopt;
}

std::string restored(std::string_view value) {
    std::string text;
    while (!value.empty()) {
        const auto byte = value.front() == '%' ? hexByte(value.substr(1, 2)) : std::nullopt;
        text += byte ? static_cast<char>(*byte) : value.front();
        value.remove_prefix(byte ? 3 : 1);
    }
    return text;
}

}  // namespace

RecentFiles::RecentFiles(ProfileFile& profile) : profile_(profile) {
    for (std::size_t i = 0; i < kMost; ++i) {
        const std::string file = restored(profile_.getString(kSection, nameOf(i), ""));
        if (!file.empty())
            files_.emplace_back(file);
    }
}

void RecentFiles::add(const std::filesystem::path& file) {
    std::erase(files_, file);
    files_.push_front(file);
    if (files_.size() > kMost)
        files_.pop_back();
    store();
}

void RecentFiles::remove(const std::filesystem::path& file) {
    std::erase(files_, file);
    store();
}

void RecentFiles::store() {
    for (std::size_t i = 0; i < kMost; ++i) {
        profile_.setString(kSection, nameOf(i), i < files_.size() ? stored(files_[i].string()) : "",
                           true);
    }
}

}  // namespace korvel
