#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "cockpit/NearAirport.h"
#include "geo/GeoPoint.h"

namespace korvel {

class AirportRecord;
class NavDatabase;
struct Variation;

struct NearAirportOptions {
    std::size_t count = 20;
    double withinNm = 200;
    bool heliports = false;
    bool seaplaneBases = false;
    bool privateAirports = false;
};

/// Takes what the record says of itself: all but position, distance and bearing. Its details must
/// have been loaded.
void takeAirport(const AirportRecord& airport, NearAirport& near);

/// Replaces `airports` by those around the position, nearest first, with their runways and
/// frequencies. Bearings become magnetic by the variation in force. Reads a record for each: call
/// when the position has changed by more than a pilot would see, not for each frame.
void findNearAirports(const NavDatabase& database, GeoPoint position, const Variation& variation,
                      const NearAirportOptions& options, std::vector<NearAirport>& airports);

/// Where the airport in this row of a former list stands now; nothing when it has gone.
std::optional<std::size_t> rowOfSame(std::span<const NearAirport> former, std::size_t row,
                                     std::span<const NearAirport> airports);

}  // namespace korvel
