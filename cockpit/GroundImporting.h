#pragma once

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "base/Guarded.h"
#include "ground/GroundFile.h"

namespace korvel {

/// Files of the ground (base maps, heights, airspaces, obstacles) that are looked through and
/// copied into the pilot's folder on a thread of its own: a stick may hold hundreds of tiles. What
/// cannot be used is told and not copied; a file of the same name is replaced, in one step. Where
/// no thread can be had it is done at once. The owner's thread only; the state has a lock.
class GroundImporting {
 public:
    struct State {
        std::string doing;  ///< the file's bare name
        int percent = 0;
    };
    /// What became of a file.
    struct Taken {
        std::string name;       ///< its bare one, in the folder
        GroundFile found{};     ///< of what kind, and what it covers
        std::string date{};     ///< "2026-08-11" of the data or else of the file; empty if unknown
        std::string error{};    ///< why it was left out, for the pilot; empty when it was not
        bool replaced = false;  ///< another file of that name
    };

    /// Begins. The files go into `folder`.
    GroundImporting(std::vector<std::filesystem::path> files, std::filesystem::path folder);
    GroundImporting(const GroundImporting&) = delete;
    GroundImporting& operator=(const GroundImporting&) = delete;
    /// Breaks off what is not finished, and waits for the thread.
    ~GroundImporting();

    /// The thread ends after the file that it is at; those before stay taken.
    void breakOff() { wanted_ = false; }
    [[nodiscard]] State state() const { return *state_.lock(); }
    [[nodiscard]] bool isFinished() const { return finished_; }
    /// To be asked when it is finished: in the order of the files, without those not reached.
    [[nodiscard]] const std::vector<Taken>& taken() const { return taken_; }
    [[nodiscard]] std::size_t asked() const { return files_.size(); }

 private:
    void run();
    [[nodiscard]] Taken take(const std::filesystem::path& file) const;

    const std::vector<std::filesystem::path> files_;
    const std::filesystem::path folder_;
    Guarded<State> state_;
    std::atomic<bool> wanted_{true};
    std::atomic<bool> finished_{false};
    std::vector<Taken> taken_;  // the thread's until it is finished
    std::thread thread_;
};

/// What a pilot reads of it: each file with its coverage and its age or why it was left out.
std::string groundImportText(const GroundImporting& importing);

}  // namespace korvel
