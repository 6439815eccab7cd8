#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cockpit/NearAirport.h"
#include "config/NearestFilter.h"
#include "geo/GeoPoint.h"

namespace korvel {

class AirportRecord;
class NavDatabase;
struct CockpitData;
struct Variation;

struct NearAirportOptions {
    std::size_t count = 20;
    double withinNm = 200;
    bool heliports = false;
    bool seaplaneBases = false;
    bool privateAirports = false;
    NearestFilter filter{};
};

/// Takes what the record says of itself: all but position, distance and bearing. Its details must
/// have been loaded.
void takeAirport(const AirportRecord& airport, NearAirport& near);

/// Replaces `airports` by those around the position, nearest first, with their runways and
/// frequencies. Bearings become magnetic by the variation in force. Reads a record for each: call
/// when the position has changed by more than a pilot would see, not for each frame.
void findNearAirports(const NavDatabase& database, GeoPoint position, const Variation& variation,
                      const NearAirportOptions& options, std::vector<NearAirport>& airports);

/// "2953 ft  09/27  ASPH" of the longest runway, as far as it is known; empty without one.
std::string runwayText(const NearAirport& airport, int altUnit);

/// "from 600 m, hard"; empty for any airport.
std::string filterText(const NearestFilter& filter, int altUnit);

/// How high above the field a glide from here ends, feet; negative: short of it. Nothing while
/// aircraft, position, altitude or elevation are not known, or where the wind is too strong.
std::optional<int> glideArrivalFt(const CockpitData& data, const NearAirport& airport);

/// Where the airport in this row of a former list stands now; nothing when it has gone.
std::optional<std::size_t> rowOfSame(std::span<const NearAirport> former, std::size_t row,
                                     std::span<const NearAirport> airports);

}  // namespace korvel
