#include "config/DataFileSearch.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "base/Ascii.h"
#include "platform/Folders.h"
#include "platform/PathText.h"

namespace korvel {
namespace {

std::string nameOf(const std::filesystem::path& file) { return textOf(file.filename()); }

}  // namespace

DataFileSearch::DataFileSearch(std::vector<std::filesystem::path> folders)
    : folders_(std::move(folders)) {
    std::erase_if(
        folders_, [](const std::filesystem::path& folder) { return folder.empty(); });
}

std::vector<std::filesystem::path> DataFileSearch::find(std::string_view pattern) const {
    std::vector<std::filesystem::path> files = pathsOf(pattern);
    std::unordered_set<std::string> seen;
    std::erase_if(files, [&seen](const std::filesystem::path& file) {
        return !seen.insert(inSmallLetters(nameOf(file))).second;
    });
    return files;
}

std::vector<std::string> DataFileSearch::findNames(std::string_view pattern) const {
    std::vector<std::string> names;
    for (const std::filesystem::path& file : find(pattern))
        names.push_back(nameOf(file));
    return names;
}

std::vector<std::filesystem::path> DataFileSearch::pathsOf(std::string_view name) const {
    std::vector<std::filesystem::path> files;
    for (const std::filesystem::path& folder : folders_) {
        for (std::filesystem::path& file : findFiles(folder, name))
            if (!nameOf(file).starts_with('_'))
                files.push_back(std::move(file));
    }
    return files;
}

}  // namespace korvel
