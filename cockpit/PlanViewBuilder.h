#pragma once

#include "cockpit/PlanView.h"

namespace korvel {

class FlightPlan;
class NavDatabase;

/// The plan as the pages show it. The course of each leg is turned to magnetic with the database's
/// variation where the leg begins, wherever the aircraft is. The file's name and whether there is
/// something to save are left to the caller.
PlanView makePlanView(const FlightPlan& plan, const NavDatabase& database);

}  // namespace korvel
