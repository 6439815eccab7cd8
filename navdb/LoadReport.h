#pragma once

#include <filesystem>
#include <string_view>

namespace korvel {

/// The text file that tells the user what was loaded and what was refused. Every call takes one
/// process-wide lock, so that lines from any thread never interleave; a line that cannot be
/// written is lost.
class LoadReport {
 public:
    /// In the program's own folder: "korvel load status.txt".
    explicit LoadReport(std::filesystem::path path);

    /// Deletes the file.
    void restart();

    /// Appends the text as it stands; texts carry their own "\r\n".
    void AppendLoadReport(std::string_view text);

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
    std::filesystem::path path_;
};

inline constexpr std::string_view kLoadReportName = "korvel load status.txt";

}  // namespace korvel
