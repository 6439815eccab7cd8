#pragma once

#include <vector>

#include "receiver/GpsFix.h"

namespace korvel {

/// One satellite as the receiver reports it.
struct Satellite {
    int number = 0;
    bool used = false;
    int signalDb = 0;      ///< 0: not received
    int azimuthDeg = 0;    ///< from true north
    int elevationDeg = 0;  ///< above 90: below the horizon

    /// Where it stands is known and above the horizon. A receiver that does not know yet sends
    /// zeros.
    bool inSky() const { return elevationDeg <= 90 && (elevationDeg > 0 || azimuthDeg > 0); }
    friend bool operator==(const Satellite&, const Satellite&) = default;
};

/// The occupied slots in their order.
std::vector<Satellite> unpackSatellites(const SatelliteWords& words);

}  // namespace korvel
