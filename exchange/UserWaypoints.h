#pragma once

#include <string>
#include <vector>

#include "exchange/ForeignPlan.h"

namespace korvel {

/// Waypoints with the identifiers by which a user database can hold them, and what was changed, a
/// line each.
struct UserWaypoints {
    std::vector<ForeignWaypoint> waypoints;
    std::vector<std::string> notes;
};

/// Each identifier has at most 11 characters and stands once.
UserWaypoints userWaypoints(std::vector<ForeignWaypoint> waypoints);

/// The text of a "*.UDB.TXT" file.
std::string userDatabaseText(const std::vector<ForeignWaypoint>& waypoints);

}  // namespace korvel
