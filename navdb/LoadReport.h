#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace korvel {

/// The text file that tells the user what was loaded and what was refused. Every call takes one
/// process-wide lock, so that lines from any thread never interleave. A report whose file cannot be
/// written goes on in memory.
class LoadReport {
 public:
    /// A report that is kept in memory only.
    LoadReport() = default;
    /// The program's is kLoadReportName in its own folder.
    explicit LoadReport(std::filesystem::path path, FileSystem& disk = systemFileSystem());

    /// Deletes what was reported so far.
    void restart();

    /// Appends the text as it stands; texts carry their own "\r\n".
    void AppendLoadReport(std::string_view text);

    /// While it lives what is appended may reach the file later, many lines at once: a million of
    /// them one by one keep a disk busy for long.
    class Gathering {
     public:
        explicit Gathering(LoadReport& report) : report_(report) { report_.gather(true); }
        Gathering(const Gathering&) = delete;
        Gathering& operator=(const Gathering&) = delete;
        ~Gathering() { report_.gather(false); }

     private:
        LoadReport& report_;
    };

    /// Everything that stands in the file; without one, everything reported since the start.
    [[nodiscard]] std::string text() const;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
    void gather(bool on);
    void writeGathered();

    std::filesystem::path path_;  ///< empty for a report in memory
    FileSystem& disk_ = systemFileSystem();
    bool fileIsWhole_ = true;
    std::string reported_;  ///< since the start
    bool gathers_ = false;
    std::size_t writtenSize_ = 0;  ///< of what was reported
};

inline constexpr std::string_view kLoadReportName = "korvel load status.txt";

}  // namespace korvel
