#pragma once

#include <span>
#include <string>
#include <vector>

#include "geo/Units.h"
#include "nav/plan/PlanWaypoint.h"

namespace korvel {

/// What looks like a slip in a plan that can be flown all the same: legs of more than 500 NM and
/// turns of more than 120 degrees, which a namesake on the other side of the world makes. One text
/// for the pilot each, with distances in `unit`, in the order of the plan; empty for none.
std::vector<std::string> planHints(std::span<const PlanWaypoint> entries, DistanceUnit unit);

}  // namespace korvel
