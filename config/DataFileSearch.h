#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// Ordered search for data files that the user may supply. The first folder that holds a name wins,
/// letters compared without regard to case; names that begin with "_" are not seen.
class DataFileSearch {
 public:
    /// `folders` in the order of the search: the user's documents before what the program brings.
    /// Empty paths and folders that cannot be read hold nothing.
    explicit DataFileSearch(std::vector<std::filesystem::path> folders);

    /// Files whose names match `pattern` ("*" stands for any run of characters), folder by folder,
    /// each name once.
    std::vector<std::filesystem::path> find(std::string_view pattern) const;
    /// The bare names of find(), for lists.
    std::vector<std::string> findNames(std::string_view pattern) const;

    /// Every file of this one name, in search order, for a caller that falls back on a later folder
    /// when an earlier one's file cannot be opened.
    std::vector<std::filesystem::path> pathsOf(std::string_view name) const;

 private:
    std::vector<std::filesystem::path> folders_;
};

}  // namespace korvel
