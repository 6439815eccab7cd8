#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace korvel {

class Flight;
class NavDatabase;
class ProfileFile;

/// What a program that was killed goes on with: the plan's file, the line that it was entered
/// by and the direct-to, kept in the profile while they are in force. An orderly end forgets them.
/// Main thread only.
class FlightMemory {
 public:
    /// All of it must outlive this.
    FlightMemory(ProfileFile& profile, Flight& flight, NavDatabase& database)
        : profile_(profile), flight_(flight), database_(database) {}

    /// What became of an earlier run's flight.
    struct Resumed {
        bool plan = false;
        bool direct = false;
        bool unsaved = false;  ///< the plan has changes that no file holds
        std::string error{};   ///< the plan that did not come back, for the pilot; empty for none
    };

    /// Takes up what an earlier run has left, once the databases are there, and keeps what is flown
    /// from now on; nothing is kept before. `unsaved` is where the plan keeps what no file holds.
    /// Where it is not `wanted`, a plan that no file holds is set aside.
    Resumed begin(const std::filesystem::path& unsaved, bool wanted);

    /// At each tick.
    void keep();
    /// The next run begins without a flight, unless this one goes on all the same.
    void forget();
    void goOn() { keeps_ = true; }

 private:
    void resumePlan(Resumed& resumed, const std::filesystem::path& file);
    bool resumeDirect(std::string_view text);

    ProfileFile& profile_;
    Flight& flight_;
    NavDatabase& database_;
    bool keeps_ = false;
    std::filesystem::path keptFile_;
    std::optional<std::uint64_t> keptRevision_;  ///< of the plan whose line is kept
};

}  // namespace korvel
