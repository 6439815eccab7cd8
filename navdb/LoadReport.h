#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvel {

/// The text file that tells the user what was loaded and what was refused. Every call takes one
/// process-wide lock, so that lines from any thread never interleave; a line that cannot be
/// written is lost.
class LoadReport {
 public:
    /// A report that is kept in memory only.
    LoadReport() = default;
    /// The program's is kLoadReportName in its own folder.
    explicit LoadReport(std::filesystem::path path);

    /// Deletes what was reported so far.
    void restart();

    /// Appends the text as it stands; texts carry their own "\r\n".
    void AppendLoadReport(std::string_view text);

    /// Everything reported since the start.
    [[nodiscard]] std::string text() const;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
    std::filesystem::path path_;  ///< empty for a report in memory
    std::string inMemory_;
};

inline constexpr std::string_view kLoadReportName = "korvel load status.txt";

}  // namespace korvel
