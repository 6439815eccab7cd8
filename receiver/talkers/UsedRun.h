#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "receiver/talkers/SkyTable.h"

namespace korvel {

/// A run of GSA sentences, which is one list of the satellites that a position is made of: each
/// system has sentences of its own in it, and one sentence holds twelve at most.
class UsedRun {
 public:
    static constexpr std::size_t kFewestFields = 18;
    static constexpr std::size_t kMostInSentence = 12;

    /// Fields by number, 0 being the name: 2 kind of fix, 3-14 satellites, 18 the system, if it is
    /// there.
    void add(Talker talker, std::span<const std::string_view> fields);
    /// The next sentence begins another run.
    void end() { ended_ = true; }

    /// Only GP has spoken in it.
    bool isGpAlone() const { return gpAlone_; }
    int fixMode() const { return fixMode_; }
    /// The first twelve of GPS and SBAS, as gpsNumber() has them.
    std::span<const int> gpsNumbers() const { return std::span(gps_).first(gpsCount_); }

    /// The systems that it names, by itself or by a number.
    SystemSet systems() const { return systems_; }
    const UsedSatellites& used() const { return used_; }

 private:
    void name(SatelliteSystem system);
    void addSatellite(const SatelliteNumber& satellite);

    bool ended_ = true;
    bool gpAlone_ = true;
    int fixMode_ = 1;
    std::array<int, kMostInSentence> gps_{};
    std::size_t gpsCount_ = 0;
    SystemSet systems_ = 0;
    UsedSatellites used_{};
};

}  // namespace korvel
