#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

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

/// The occupied slots of CockpitData::satellites, by ascending number.
std::vector<Satellite> unpackSatellites(const std::array<std::uint32_t, 12>& words);

/// Where a satellite stands in a sky plot: the zenith in the middle, the horizon on the rim, north
/// at the top, east at the right.
Point skyPoint(const Satellite& satellite, Point center, double radius);

/// "3D fix, 8 satellites"
std::string fixText(const CockpitData& data);

/// The satellites in the sky and how well each is received; without any it says why. Fills the
/// whole canvas.
void paintSatellitePage(Canvas& canvas, const CockpitData& data, const MapColorCache& colors);

}  // namespace korvel
