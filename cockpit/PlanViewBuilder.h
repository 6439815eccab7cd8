#pragma once

#include "cockpit/PlanView.h"

namespace korvel {

class FlightPlan;
struct Variation;

/// The plan as the pages show it. Courses are turned to magnetic with the one variation in force
/// where the aircraft is. The file's name and whether there is something to save are left to the
/// caller.
PlanView makePlanView(const FlightPlan& plan, const Variation& variation);

}  // namespace korvel
