#pragma once

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>

#include "base/Guarded.h"
#include "compiler/NavdbBuild.h"

namespace korvel {

/// A database that is being compiled from a download on a thread of its own, which stands back
/// behind the flight. It is written beside and renamed when it is whole, so that the databases in
/// use and their files stay as they are; it is taken into use by loading the folder anew. Where no
/// thread can be had it is compiled at once. The owner's thread only; the state has a lock.
class ChartCompiling {
 public:
    struct State {
        std::string doing;  ///< which file is being read, or what else
        int percent = 0;
    };
    struct Result {
        std::string error;  ///< for the pilot; empty when there is a database
        NavdbSource source = NavdbSource::OurAirports;
        std::filesystem::path output;
        /// YYYYMMDD: what stands for the expiry of data that name no cycle; 0 where they do.
        int unofficialExpiryYmd = 0;
        ImportLog log;
    };

    /// Begins. `download` is a folder or a zip file; the database goes into `folder`.
    ChartCompiling(std::filesystem::path download, std::filesystem::path folder);
    ChartCompiling(const ChartCompiling&) = delete;
    ChartCompiling& operator=(const ChartCompiling&) = delete;
    /// Breaks off what is not finished, and waits for the thread.
    ~ChartCompiling();

    /// The thread ends as soon as it can.
    void breakOff() { wanted_ = false; }
    [[nodiscard]] bool isBrokenOff() const { return !wanted_; }
    [[nodiscard]] State state() const { return *state_.lock(); }
    [[nodiscard]] bool isFinished() const { return finished_; }
    [[nodiscard]] const std::filesystem::path& download() const { return download_; }
    /// To be asked when it is finished.
    [[nodiscard]] const Result& result() const { return result_; }

 private:
    void run();
    std::string compile();

    const std::filesystem::path download_;
    const std::filesystem::path folder_;
    Guarded<State> state_;
    std::atomic<bool> wanted_{true};
    std::atomic<bool> finished_{false};
    Result result_;  // the thread's until it is finished
    std::thread thread_;
};

}  // namespace korvel
