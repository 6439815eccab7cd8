#include "platform/Folders.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

#include "base/Ascii.h"
#include "platform/PathText.h"
#include "platform/SystemFolders.h"

namespace korvel {
namespace {

/// Whether the whole of `name` matches; goes back to the last "*" only, which suffices since what
/// stands before it has matched for good.
bool matches(std::string_view name, std::string_view pattern) {
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t afterStar = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            afterStar = n;
        } else if (p < pattern.size() && lowerAscii(pattern[p]) == lowerAscii(name[n])) {
            ++p;
            ++n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

}  // namespace

bool isPortable(const std::filesystem::path& own) {
    std::error_code error;
    return std::filesystem::is_regular_file(own / "portable", error);
}

std::filesystem::path programFolder(const std::filesystem::path& own) {
    return isPortable(own) ? own : systemProgramFolder(own);
}

std::filesystem::path documentsFolder(const std::filesystem::path& own) {
    if (!isPortable(own))
        return systemDocumentsFolder();
    std::filesystem::path folder = own / "Documents";
    std::error_code error;
    std::filesystem::create_directory(folder, error);
    return folder;
}

std::filesystem::path pluginFolder() { return executableFolder() / "plugins"; }

std::vector<std::filesystem::path> dataFolders() {
    return {documentsFolder(), executableFolder() / "data"};
}

std::vector<std::filesystem::path> findFiles(const std::filesystem::path& folder,
                                             std::string_view pattern) {
    std::vector<std::pair<std::string, std::filesystem::path>> found;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    while (!error && entry != std::filesystem::directory_iterator()) {
        std::string name = textOf(entry->path().filename());
        std::error_code unreadable;
        if (matches(name, pattern) && entry->is_regular_file(unreadable))
            found.emplace_back(std::move(name), entry->path());
        entry.increment(error);
    }
    // char_traits<char> compares as unsigned bytes.
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::filesystem::path> paths;
    paths.reserve(found.size());
    for (auto& [name, path] : found)
        paths.push_back(std::move(path));
    return paths;
}

}  // namespace korvel
