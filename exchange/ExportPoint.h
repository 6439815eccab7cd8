#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "nav/plan/PlanWaypoint.h"

namespace korvel {

/// A waypoint of a plan as another program shall see it.
struct ExportPoint {
    std::string ident;  ///< without a letter for its kind; no two places' are equal by chance
    std::string name;   ///< ASCII or not, as the pilot reads it
    KindMask kind = kFixKind;
    bool isOwn = false;  ///< the user's own waypoint, which no database has
    GeoPoint position;
    std::int32_t altitudeFt = kNoAltitudeFt;
};

std::vector<ExportPoint> exportPoints(const std::vector<PlanWaypoint>& entries);

}  // namespace korvel
