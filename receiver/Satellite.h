#pragma once

#include <optional>
#include <span>
#include <vector>

#include "receiver/GpsFix.h"
#include "receiver/talkers/SkyTable.h"

namespace korvel {

/// One satellite as the receiver reports it.
struct Satellite {
    int number = 0;
    bool used = false;
    int signalDb = 0;      ///< 0: not received
    int azimuthDeg = 0;    ///< from true north
    int elevationDeg = 0;  ///< above 90: below the horizon
    /// Within which `number` is meant; empty where only GPS is listened to.
    std::optional<SatelliteSystem> system{};

    /// Where it stands is known and above the horizon. A receiver that does not know yet sends
    /// zeros.
    bool inSky() const { return elevationDeg <= 90 && (elevationDeg > 0 || azimuthDeg > 0); }
    friend bool operator==(const Satellite&, const Satellite&) = default;
};

/// The occupied slots in their order.
std::vector<Satellite> unpackSatellites(const SatelliteWords& words);

/// The same of all systems.
std::vector<Satellite> satellitesOf(std::span<const SkySatellite> sky);

}  // namespace korvel
