#pragma once

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "base/Guarded.h"
#include "navdb/DatabaseLoader.h"
#include "navdb/LoadReport.h"
#include "navdb/NavDatabase.h"

namespace korvel {

/// Databases that are being loaded on a thread of their own, beside those in use. Where no thread
/// can be had they are loaded at once. The owner's thread only; the state has a lock, in which
/// nothing is called.
class ChartLoading {
 public:
    struct State {
        std::string text;  ///< for the pilot: "Loading NAME", "Aborting"
        int percent = 0;   ///< of what the text names
    };

    /// Begins. The clock and the report must outlive it.
    ChartLoading(const Clock& clock, LoadReport& report,
                 std::vector<std::filesystem::path> folders);
    ChartLoading(const ChartLoading&) = delete;
    ChartLoading& operator=(const ChartLoading&) = delete;
    /// Breaks off what is not finished, and waits for the thread.
    ~ChartLoading();

    /// The thread ends as soon as it can.
    void breakOff();
    [[nodiscard]] State state() const { return *state_.lock(); }
    [[nodiscard]] bool isFinished() const { return finished_; }
    /// What was loaded, to be taken over; null before it is finished and when it was broken off.
    [[nodiscard]] DatabaseLoader* loaded() { return finished_ && complete_ ? &loader_ : nullptr; }

 private:
    void run();
    bool note(std::string_view text, int percent);

    NavDatabase database_;
    DatabaseLoader loader_;
    const std::vector<std::filesystem::path> folders_;
    Guarded<State> state_;
    std::atomic<bool> wanted_{true};
    std::atomic<bool> finished_{false};
    bool complete_ = false;  // to be read once it is finished
    std::thread thread_;
};

}  // namespace korvel
