#pragma once

#include <deque>
#include <filesystem>
#include <string>

namespace korvel {

class ProfileFile;

/// The four files that were used last, the latest first, kept in the profile.
class RecentFiles {
 public:
    static constexpr std::size_t kMost = 4;

    /// The profile must outlive this.
    explicit RecentFiles(ProfileFile& profile);

    [[nodiscard]] const std::deque<std::filesystem::path>& files() const { return files_; }
    void add(const std::filesystem::path& file);
    /// For one that is there no more.
    void remove(const std::filesystem::path& file);

 private:
    void store();

    ProfileFile& profile_;
    std::deque<std::filesystem::path> files_;
};

}  // namespace korvel
