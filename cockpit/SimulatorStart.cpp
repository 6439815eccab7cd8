#include "cockpit/SimulatorStart.h"

#include <algorithm>
#include <cmath>

#include "base/TextNumbers.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "nav/plan/FlightPlan.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {
namespace {

/// Boeing Field, Seattle.
constexpr GeoPoint kDefaultField{47.53 * kDegToRad, -122.302 * kDegToRad};

/// For the first place of the plan that lies elsewhere.
void headAlong(const std::vector<PlanWaypoint>& plan, const NavDatabase& database,
               SimulatorStart& start) {
    const auto away = std::ranges::find_if(plan, [&](const PlanWaypoint& entry) {
        return !SamePoint(entry.position(), start.position);
    });
    if (away == plan.end())
        return;
    const double course = TrueCourseDeg(start.position, away->position());
    start.headingMag = RoundToInt(
        Variation{.databaseDeg = database.variationAt(start.position)}.TrueToMagnetic(course));
}

}  // namespace

SimulatorStart proposedSimulatorStart(const Settings& settings,
                                      const std::vector<PlanWaypoint>& plan,
                                      const NavDatabase& database) {
    SimulatorStart start{.position = kDefaultField, .followsPlan = true};
    const double lat = ParseDouble(settings.simLat);
    const double lon = ParseDouble(settings.simLon);
    const bool isOnEarth = std::abs(lat) <= 90 && std::abs(lon) <= 180;
    if (isOnEarth && (lat != 0 || lon != 0))
        start.position = {lat * kDegToRad, lon * kDegToRad};
    else if (!plan.empty())
        start.position = plan.front().position();
    headAlong(plan, database, start);
    return start;
}

SimulatorStart simulatorStartAt(const DatabaseRecord& place, const std::vector<PlanWaypoint>& plan,
                                const NavDatabase& database) {
    SimulatorStart start{.position = place.position, .followsPlan = true};
    const auto* const airport = dynamic_cast<const AirportRecord*>(&place);
    if (airport != nullptr && airport->elevationFt != kNoElevationFt)
        start.altitudeFt = airport->elevationFt;
    headAlong(plan, database, start);
    return start;
}

}  // namespace korvel
