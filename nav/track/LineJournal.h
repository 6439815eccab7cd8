#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace korvel {

/// A text file that grows by whole lines, each handed to the system at once: a program that is
/// killed loses nothing that was appended before. Failures to write are forgotten, the next line
/// tries again: recording must never stop the navigator.
class LineJournal {
 public:
    /// An empty path makes a journal that keeps nothing.
    explicit LineJournal(std::filesystem::path path) : path_(std::move(path)) {}

    /// The file's text up to its last CR LF: what a kill in the midst of a line left is cut off.
    [[nodiscard]] std::string completeLines() const;

    /// `lines` ends with CR LF. A torn line that stands at the end of the file is ended first.
    void append(std::string_view lines);
    void replace(std::string_view lines);
    /// Both close the file first; nothing happens when there is none.
    void remove();
    void moveTo(const std::filesystem::path& destination);

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
    std::filesystem::path path_;
    std::ofstream file_;
};

}  // namespace korvel
