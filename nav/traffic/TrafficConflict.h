#pragma once

#include <cstdint>
#include <optional>

#include "geo/GeoPoint.h"

namespace korvel {

/// An aircraft on its way. What is absent is unknown.
struct MovingAircraft {
    GeoPoint position{};  ///< valid
    std::optional<double> trackTrueDeg{};
    std::optional<double> groundSpeedKt{};
    std::optional<double> heightFt{};  ///< both above the same level
    std::optional<double> verticalSpeedFpm{};
};

/// How much an aircraft matters, the most at the end.
enum class TrafficLevel : std::uint8_t {
    Far,
    Near,     ///< within 6 NM and 1200 ft
    Caution,  ///< comes within 1 NM and 850 ft in 45 s, or is there
    Alert,    ///< comes within half a mile and 600 ft in 25 s, or is there
};

/// As both fly straight on from now. Who is not known to move is taken to stand; an unknown height
/// may be the own one, which makes a caution and never an alert.
TrafficLevel trafficLevel(const MovingAircraft& own, const MovingAircraft& other);

/// Where it is so many seconds later; without a known motion where it was.
GeoPoint movedOn(const MovingAircraft& aircraft, double seconds);

}  // namespace korvel
