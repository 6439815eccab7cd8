#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "FuzzPlaces.h"
#include "nav/plan/RouteEntry.h"

/// Every route is expanded or refused with a message and its word; every entry is a place.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvel;
    const AirwayTable airways{
        {"V1", {{"A", "B", "C", "D"}, {"H", "G", "F", "E"}}},
        {"V2", {{"A", "F", "K", "P"}, {"M", "J", "G", "D"}}},
        {"V3", {{"B", "F", "J", "N"}, {"B", "GONE", "N"}, {}}},
        {"V4", {{"I", "J", "K", "L"}, {"A", "I", "A"}}},
    };
    FuzzPlaces places;
    RouteEntry entry(places.database, places.generated, GeoPoint{0, 0});
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const RouteResult result = entry.ExpandRoute(SplitWords(text), airways);
    if (!result.error.empty() && (result.entries.size() != 1 || result.entries[0].record))
        std::abort();
    for (const PlanWaypoint& waypoint : result.entries)
        if (result.error.empty() && !IsValid(waypoint.position()))
            std::abort();
    return 0;
}
