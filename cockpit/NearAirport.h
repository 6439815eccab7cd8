#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

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
    std::string surface;                   ///< of the longest runway
    bool hard = false;                     ///< that surface is
    std::string runway;                    ///< its ends, "09/27"
    std::string frequency;                 ///< the one to call first, "TWR 118.100"; empty for none
    std::vector<std::string> frequencies;  ///< all of them, the one to call first at the head
    bool expired = false;                  ///< from a database whose date has passed

    friend bool operator==(const NearAirport&, const NearAirport&) = default;
};

}  // namespace korvel
