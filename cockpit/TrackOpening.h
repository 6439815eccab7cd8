#pragma once

#include <atomic>
#include <filesystem>
#include <thread>

#include "nav/track/TrackText.h"

namespace korvel {

/// A track file that is being read on a thread of its own: one of a million points takes a second
/// or more. Where no thread can be had it is read at once. The owner's thread only.
class TrackOpening {
 public:
    /// Begins.
    explicit TrackOpening(std::filesystem::path path);
    TrackOpening(const TrackOpening&) = delete;
    TrackOpening& operator=(const TrackOpening&) = delete;
    /// Breaks off what is not finished, and waits for the thread.
    ~TrackOpening();

    /// The thread ends as soon as it can, with kTrackBrokenOff for an error.
    void breakOff() { wanted_ = false; }
    [[nodiscard]] int percent() const { return percent_; }
    [[nodiscard]] bool isFinished() const { return finished_; }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// What was read, to be taken once, when it is finished.
    [[nodiscard]] TrackLines take() { return std::move(lines_); }

 private:
    void run();

    const std::filesystem::path path_;
    std::atomic<bool> wanted_{true};
    std::atomic<bool> finished_{false};
    std::atomic<int> percent_{0};
    TrackLines lines_;  // the thread's until it is finished
    std::thread thread_;
};

}  // namespace korvel
