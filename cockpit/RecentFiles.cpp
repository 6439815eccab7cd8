#include "cockpit/RecentFiles.h"

#include <string_view>

#include "config/EscapedText.h"
#include "config/ProfileFile.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

constexpr std::string_view kSection = "Recent File List";

std::string nameOf(std::size_t index) { return "File" + std::to_string(index + 1); }

}  // namespace

RecentFiles::RecentFiles(ProfileFile& profile) : profile_(profile) {
    for (std::size_t i = 0; i < kMost; ++i) {
        const std::string file = unescaped(profile_.getString(kSection, nameOf(i), ""));
        if (!file.empty())
            files_.push_back(pathOf(file));
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
        profile_.setString(kSection, nameOf(i), i < files_.size() ? escaped(textOf(files_[i])) : "",
                           true);
    }
}

}  // namespace korvel
