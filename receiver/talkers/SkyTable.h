#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "receiver/talkers/SatelliteNumber.h"

namespace korvel {

/// One satellite of any system, as the receiver reports it. What it does not report is absent.
struct SkySatellite {
    SatelliteNumber id{};
    std::optional<int> elevationDeg{};  ///< below 0: below the horizon
    std::optional<int> azimuthDeg{};    ///< from true north
    std::optional<int> signalDb{};      ///< the strongest of its signals
    bool used = false;

    friend bool operator==(const SkySatellite&, const SkySatellite&) = default;
};

/// A satellite on one of its signals, as one GSV sentence has it; kUnknown where it says nothing.
struct SatelliteSignal {
    static constexpr std::int16_t kUnknown = INT16_MIN;

    SatelliteNumber id{};
    std::int16_t elevationDeg = kUnknown;
    std::int16_t azimuthDeg = kUnknown;
    std::int16_t signalDb = kUnknown;
    std::uint8_t signal = 0;  ///< which of its signals, 0 to 15; 0 where it is not said
};

/// A set of signal numbers, one bit each.
using SignalSet = std::uint16_t;
/// A set of systems, one bit each.
using SystemSet = std::uint8_t;
/// The satellites that a position is made of: for each system the bits of placeInSystem().
using UsedSatellites = std::array<std::uint64_t, kSatelliteSystems>;

/// Every satellite that any talker has told of, in tables of fixed size. Not safe by itself: it
/// lives in a Guarded.
class SkyTable {
 public:
    static constexpr std::size_t kMostOfTalker = 64;

    /// A talker's whole cycle stands in place of what it had told of these signals.
    void replace(Talker talker, SignalSet signals, std::span<const SatelliteSignal> satellites);
    /// Which satellites of these systems are used now.
    void setUsed(SystemSet systems, const UsedSatellites& used);

    /// One entry a satellite, by system and number.
    std::vector<SkySatellite> satellites() const;

 private:
    struct OfTalker {
        std::array<SatelliteSignal, kMostOfTalker> entries{};
        std::size_t count = 0;
    };

    std::array<OfTalker, kTalkers> talkers_{};
    UsedSatellites used_{};
};

}  // namespace korvel
