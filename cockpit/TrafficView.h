#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "geo/GeoPoint.h"
#include "nav/traffic/TrafficConflict.h"

namespace korvel {

/// Another aircraft as the pages show it: where it is by now. What is absent is unknown.
struct TrafficView {
    std::string name;  ///< the call sign, without one the address
    GeoPoint position;
    std::optional<double> trackTrueDeg;
    std::optional<double> groundSpeedKt;
    std::optional<int> aboveFt;  ///< the own aircraft
    std::optional<int> verticalSpeedFpm;
    int ageSec = 0;  ///< of the last report
    bool airborne = false;
    TrafficLevel level = TrafficLevel::Far;

    friend bool operator==(const TrafficView&, const TrafficView&) = default;
};

/// The most urgent first, of those the nearest.
using TrafficList = std::vector<TrafficView>;

}  // namespace korvel
