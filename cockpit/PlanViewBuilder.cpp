#include "cockpit/PlanViewBuilder.h"

#include <utility>

#include "geo/Geodesy.h"
#include "nav/plan/FlightPlan.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {

PlanView makePlanView(const FlightPlan& plan, const NavDatabase& database) {
    PlanView view;
    view.rows.reserve(plan.entries().size());
    const std::vector<bool> flown = plan.flown();
    for (const PlanWaypoint& entry : plan.entries()) {
        PlanRow row;
        row.text = entry.text;
        row.key = entry.record->key;
        row.ident = entry.record->ident.view();
        row.name = entry.record->GetName();
        row.position = entry.position();
        row.expired = entry.record->pastDate;
        if (entry.altitudeFt != kNoAltitudeFt)
            row.altitudeFt = entry.altitudeFt;
        row.elevationFt = elevationOf(*entry.record);
        if (!view.rows.empty()) {
            const GeoPoint from = view.rows.back().position;
            const Variation variation{.databaseDeg = database.variationAt(from)};
            row.courseMagDeg = variation.TrueToMagnetic(TrueCourseDeg(from, row.position));
            row.legNm = DistanceNm(from, row.position);
        }
        row.flown = flown[view.rows.size()];
        view.rows.push_back(std::move(row));
    }
    view.totalNm = plan.totalNm();
    return view;
}

}  // namespace korvel
