#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
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
    /// On an error, which word of the line that is, from 0; of an airway that leads into another it
    /// is the airway.
    std::size_t errorWord = 0;
};

/// Turns a line of identifiers into the entries of a plan. User-interface thread only.
class RouteEntry {
 public:
    /// `present` is where the aircraft is, if that is known: the first word is looked up near it,
    /// every other one near the place before it. A word that is nothing else is taken for an
    /// airport without the letters of `icaoPrefix` in front.
    RouteEntry(NavDatabase& database, GeneratedFixes& fixes, std::optional<GeoPoint> present,
               std::string icaoPrefix = {})
        : database_(database),
          fixes_(fixes),
          present_(present),
          icaoPrefix_(std::move(icaoPrefix)) {}

    /// Without airways every word must be a place.
    RouteResult EnterRoute(std::string_view text, bool withAirways);

    RouteResult ExpandRoute(const std::vector<std::string>& words, const AirwayTable& airways);

 private:
    void addAirway(std::string_view name, AirwayTable& airways) const;

    NavDatabase& database_;
    GeneratedFixes& fixes_;
    std::optional<GeoPoint> present_;
    std::string icaoPrefix_;
};

}  // namespace korvel
