#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "nav/plan/PlanWaypoint.h"

namespace korvel {

class GeneratedFixes;
class NavDatabase;

/// The fixes of each piece of an airway, by the airway's name.
using AirwayTable = std::map<std::string, std::vector<std::vector<std::string>>, std::less<>>;

struct RouteResult {
    /// The message for the pilot; empty on success.
    std::string error;
    /// The plan; on an error one element, whose `text` is the word that could not be resolved.
    std::vector<PlanWaypoint> entries;
};

/// Turns a line of identifiers into the entries of a plan. User-interface thread only.
class RouteEntry {
 public:
    /// `present` is where the aircraft is, if that is known: the first word is looked up near it,
    /// every other one near the place before it.
    RouteEntry(NavDatabase& database, GeneratedFixes& fixes, std::optional<GeoPoint> present)
        : database_(database), fixes_(fixes), present_(present) {}

    /// Without airways every word must be a place.
    RouteResult EnterRoute(std::string_view text, bool withAirways);

    RouteResult ExpandRoute(const std::vector<std::string>& words, const AirwayTable& airways);

 private:
    void addAirway(std::string_view name, AirwayTable& airways) const;

    NavDatabase& database_;
    GeneratedFixes& fixes_;
    std::optional<GeoPoint> present_;
};

}  // namespace korvel
