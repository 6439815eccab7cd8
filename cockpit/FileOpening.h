#pragma once

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>

#include "exchange/Formats.h"
#include "nav/track/TrackText.h"
#include "platform/Clock.h"

namespace korvel {

/// A file that is being read on a thread of its own: a track of a million points takes a second or
/// more. What another program's file holds its content says; this program's own tracks bear their
/// name. Where no thread can be had it is read at once. The owner's thread only.
class FileOpening {
 public:
    struct Found {
        ForeignContent content;  ///< of another program's file; nothing for others
        std::string bytes;       ///< of another program's file
        TrackLines track;        ///< its track or, without one, what is wrong with it
        bool isOwnTrack = false;
    };

    /// Begins. The clock, which tells the zone's rules, must outlive it.
    FileOpening(std::filesystem::path path, const Clock& clock);
    FileOpening(const FileOpening&) = delete;
    FileOpening& operator=(const FileOpening&) = delete;
    /// Breaks off what is not finished, and waits for the thread.
    ~FileOpening();

    /// The thread ends as soon as it can, with kTrackBrokenOff for an error of an own track.
    void breakOff() { wanted_ = false; }
    [[nodiscard]] bool isBrokenOff() const { return !wanted_; }
    [[nodiscard]] int percent() const { return percent_; }
    [[nodiscard]] bool isFinished() const { return finished_; }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// What was read, to be taken once, when it is finished.
    [[nodiscard]] Found take() { return std::move(found_); }

    /// Reads it here and now.
    static Found read(const std::filesystem::path& path, const Clock& clock);

 private:
    void run();

    const std::filesystem::path path_;
    const Clock& clock_;
    std::atomic<bool> wanted_{true};
    std::atomic<bool> finished_{false};
    std::atomic<int> percent_{0};
    Found found_;  // the thread's until it is finished
    std::thread thread_;
};

}  // namespace korvel
