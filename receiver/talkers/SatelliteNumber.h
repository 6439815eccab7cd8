#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "receiver/talkers/Talker.h"

namespace korvel {

/// In the order in which lists show them.
enum class SatelliteSystem : std::uint8_t { Gps, Sbas, Glonass, Galileo, BeiDou, Qzss, NavIc };

inline constexpr std::size_t kSatelliteSystems = 7;

/// A satellite's number within its system: GPS 1 to 32, SBAS 120 to 158, the others from 1.
struct SatelliteNumber {
    SatelliteSystem system = SatelliteSystem::Gps;
    int number = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): not in what is written here
    friend constexpr auto operator<=>(const SatelliteNumber&, const SatelliteNumber&) = default;
};

/// The system of which a talker alone speaks; nothing for GN, whose numbers tell.
std::optional<SatelliteSystem> systemOf(Talker talker);
/// The same of the digit in the last field of GSA: 1 GPS to 6 NavIC.
std::optional<SatelliteSystem> systemOf(std::string_view digit);

/// What a number means that stands in a list of this system; nothing where receivers number all
/// systems in one row, as those of GPS do too. Nothing is returned for a number that no satellite
/// bears.
std::optional<SatelliteNumber> satelliteNumber(std::optional<SatelliteSystem> system, int number);
/// The same with the one talker that puts two systems into its lists.
std::optional<SatelliteNumber> satelliteNumber(Talker talker, std::optional<SatelliteSystem> system,
                                               int number);

/// As sentences for GPS alone number it: SBAS as 33 to 64. Nothing for other systems and for what
/// has no number there.
std::optional<int> gpsNumber(const SatelliteNumber& satellite);

/// 0 to 63, each number of a system a different one.
constexpr unsigned placeInSystem(const SatelliteNumber& satellite) {
    constexpr int kFirstSbas = 120;
    return static_cast<unsigned>(satellite.system == SatelliteSystem::Sbas
                                     ? satellite.number - kFirstSbas
                                     : satellite.number - 1);
}

}  // namespace korvel
