#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/FileSystem.h"

namespace korvel {

/// A text file that grows by whole lines, each handed to the system at once: a program that is
/// killed loses nothing that was appended before. What cannot be written is told and forgotten, the
/// next line tries again: recording must never stop the navigator. One thread at a time.
class LineJournal {
 public:
    /// What becomes of a torn line at the end of the file when more is appended.
    enum class TornLine {
        End,   ///< stays, as a line: somebody else may have written it
        Drop,  ///< a kill has left it, and whoever reads the file could not make sense of it
    };

    /// An empty path makes a journal that keeps nothing. `disk` must outlive this.
    LineJournal(std::filesystem::path path, TornLine tornLine, FileSystem& disk)
        : path_(std::move(path)), tornLine_(tornLine), disk_(disk) {}

    /// The file's text up to its last CR LF: what a kill in the midst of a line left is cut off.
    /// Empty when there is no file, nothing when it cannot be read.
    [[nodiscard]] std::optional<std::string> completeLines() const;

    /// `lines` ends with CR LF. What an append that failed has left of them is taken away again.
    /// Returns the message for the pilot, empty on success.
    [[nodiscard]] std::string append(std::string_view lines);
    /// The message likewise; on failure the file is as it was.
    [[nodiscard]] std::string replace(std::string_view lines);
    /// Both close the file first; nothing happens when there is none.
    void remove();
    /// False when it is still in its place. What has the new name is replaced.
    bool moveTo(const std::filesystem::path& destination);

    [[nodiscard]] bool exists() const;
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
    bool open();
    bool cutBack();
    bool mendEnd();
    [[nodiscard]] std::optional<bool> isTorn() const;
    [[nodiscard]] std::string trouble() const;

    std::filesystem::path path_;
    TornLine tornLine_;
    FileSystem& disk_;
    std::unique_ptr<OutputFile> file_;
    std::optional<std::uint64_t> wholeSize_;  ///< of the file before a write that failed
};

}  // namespace korvel
