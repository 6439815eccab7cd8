#include "receiver/Satellite.h"

#include <cstdint>

namespace korvel {

std::vector<Satellite> unpackSatellites(const SatelliteWords& words) {
    std::vector<Satellite> satellites;
    for (const std::uint32_t word : words) {
        if (word == 0)
            continue;
        const auto field = [word](unsigned shift, std::uint32_t mask) {
            return static_cast<int>(word >> shift & mask);
        };
        satellites.push_back({.number = field(0, 0x7F),
                              .used = field(7, 1) != 0,
                              .signalDb = field(8, 0xFF),
                              .azimuthDeg = field(16, 0x1FF),
                              .elevationDeg = field(25, 0x7F)});
    }
    return satellites;
}

std::vector<Satellite> satellitesOf(std::span<const SkySatellite> sky) {
    constexpr int kBelowHorizon = 91;
    std::vector<Satellite> satellites;
    for (const SkySatellite& satellite : sky) {
        const int elevation = satellite.elevationDeg.value_or(0);
        satellites.push_back({.number = satellite.id.number,
                              .used = satellite.used,
                              .signalDb = satellite.signalDb.value_or(0),
                              .azimuthDeg = satellite.azimuthDeg.value_or(0),
                              .elevationDeg = elevation < 0 ? kBelowHorizon : elevation,
                              .system = satellite.id.system});
    }
    return satellites;
}

}  // namespace korvel
