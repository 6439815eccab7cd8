#include "cockpit/PlanView.h"

#include "cockpit/CockpitData.h"
#include "geo/Geodesy.h"

namespace korvel {

PlanPart planPart(const PlanView& plan, std::size_t row) {
    if (row == plan.active)
        return PlanPart::Active;
    if (plan.rows[row].flown)
        return PlanPart::Passed;
    return plan.active && row < *plan.active ? PlanPart::Skipped : PlanPart::Ahead;
}

std::optional<std::size_t> flownRow(const CockpitData& data) {
    if (!data.plan || !data.plan->active || !data.activeWaypoint ||
        *data.plan->active >= data.plan->rows.size())
        return std::nullopt;
    const PlanRow& row = data.plan->rows[*data.plan->active];
    // The figures of a runway are those of its airport at best, never of a waypoint before it.
    const bool isElsewhere = data.approach && data.approach->runway.airportKey != row.key;
    return !isElsewhere && SamePoint(row.position, *data.activeWaypoint) ? data.plan->active
                                                                         : std::nullopt;
}

}  // namespace korvel
