#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "geo/GeoPoint.h"

namespace korvel {

/// A row of the nearest-airport page.
struct NearAirport {
    std::string key;
    std::string ident;
    std::string name;
    GeoPoint position;
    double distanceNm = 0.0;
    double bearingMagDeg = 0.0;
    std::optional<int> elevationFt;
    std::optional<int> longestRunwayFt;
    std::string surface;    ///< of the longest runway
    std::string runway;     ///< its ends, "09/27"
    std::string frequency;  ///< the one to call first, "TWR 118.100"; empty for none
    bool expired = false;   ///< from a database whose date has passed

    friend bool operator==(const NearAirport&, const NearAirport&) = default;
};

}  // namespace korvel
