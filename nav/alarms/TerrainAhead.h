#pragma once

#include <functional>
#include <optional>

#include "geo/GeoPoint.h"
#include "nav/alarms/AlarmBoard.h"

namespace korvel {

/// The highest ground within so many nautical miles of a point, feet above sea; nothing where it is
/// not known.
using HighestGround = std::function<std::optional<double>(GeoPoint point, double withinNm)>;

/// Where the aircraft goes.
struct FlightPath {
    GeoPoint position;  ///< valid
    double trackTrueDeg = 0;
    double groundSpeedKt = 0;
    double altitudeFt = 0;         ///< above sea, as the receiver tells it: 80 ft more or less
    double verticalSpeedFpm = 0;   ///< up positive; 0 while it is not known
    double turnRateDegPerSec = 0;  ///< to the right positive; 0 while it is not known
};

/// The least height above known ground that the path leads to, feet; nothing where no ground is
/// known, or nobody is to be warned.
struct TerrainClearance {
    std::optional<double> withinMinuteFt{};
    std::optional<double> withinHalfMinuteFt{};
};

/// Looks along the path for a minute and half a minute at the present speed, for a mile at least,
/// in a corridor that widens with the distance. A climb counts as half of what it is now.
TerrainClearance clearanceAhead(const FlightPath& path, const HighestGround& highest);

/// Slower than this the aircraft stands or rolls.
inline constexpr double kTerrainFromKt = 40;

/// Where ground close by is what the pilot wants.
struct LandingNear {
    std::optional<double> runwayNm{};       ///< to the nearest runway
    std::optional<double> destinationNm{};  ///< to where the flight ends
    std::optional<double> aboveDestinationFt{};
};
bool isLanding(const LandingNear& near);

/// From less than the first an alarm begins, from more than the second it ends, feet.
inline constexpr double kTerrainBeginsFt = 100;
inline constexpr double kTerrainEndsFt = 250;

/// Adds the alarms of the ground ahead: a warning half a minute, a caution a minute ahead. The
/// clearance must outlive the board and be up to date whenever that is updated.
void addTerrainAlarms(AlarmBoard& board, const TerrainClearance& clearance);

}  // namespace korvel
