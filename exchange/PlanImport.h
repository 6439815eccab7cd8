#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/ForeignPlan.h"
#include "nav/plan/PlanWaypoint.h"

namespace korvel {

class GeneratedFixes;
class NavDatabase;

/// A route of another program's file, matched with the databases.
struct ImportedPlan {
    struct Route {
        std::string name;
        std::size_t points = 0;
    };
    std::string error{};          ///< the message for the pilot, and then there are no entries
    std::string_view format{};    ///< "gpx"; empty where the file is none that is known
    std::string name{};           ///< the route's
    std::vector<Route> routes{};  ///< all that the file has
    std::vector<PlanWaypoint> entries{};
    std::vector<std::string> notes{};  ///< what was changed or could not be matched, a line each
};

/// A waypoint that the file says is published, or that may be one, is the database's when that lies
/// within a mile of the file's position; else the file's position counts. Those become fixes, made
/// in `fixes`, as do the user's own. `route` counts from 1. User-interface thread only.
ImportedPlan importPlan(std::string bytes, int route, NavDatabase& database, GeneratedFixes& fixes);

}  // namespace korvel
