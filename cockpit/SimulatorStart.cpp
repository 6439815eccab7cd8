#include "cockpit/SimulatorStart.h"

#include <algorithm>
#include <cmath>

#include "base/TextNumbers.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "nav/plan/FlightPlan.h"
#include "navdb/NavDatabase.h"

namespace korvel {
namespace {

/// Boeing Field, Seattle.
constexpr GeoPoint kDefaultField{47.53 * kDegToRad, -122.302 * kDegToRad};

}  // namespace

SimulatorStart proposedSimulatorStart(const Settings& settings,
                                      const std::vector<PlanWaypoint>& plan,
                                      const NavDatabase& database) {
    GeoPoint position = kDefaultField;
    const double lat = ParseDouble(settings.simLat);
    const double lon = ParseDouble(settings.simLon);
    const bool isOnEarth = std::abs(lat) <= 90 && std::abs(lon) <= 180;
    if (isOnEarth && (lat != 0 || lon != 0))
        position = {lat * kDegToRad, lon * kDegToRad};
    else if (!plan.empty())
        position = plan.front().position();
    return simulatorStartAt(position, std::nullopt, plan, database);
}

SimulatorStart simulatorStartAt(GeoPoint position, std::optional<std::int32_t> altitudeFt,
                                const std::vector<PlanWaypoint>& plan,
                                const NavDatabase& database) {
    SimulatorStart start{.position = position, .followsPlan = true};
    start.altitudeFt = altitudeFt.value_or(start.altitudeFt);
    const auto away = std::ranges::find_if(
        plan, [&](const PlanWaypoint& entry) { return !SamePoint(entry.position(), position); });
    if (away != plan.end()) {
        const Variation variation{.databaseDeg = database.variationAt(position)};
        start.headingMag =
            RoundToInt(variation.TrueToMagnetic(TrueCourseDeg(position, away->position())));
    }
    return start;
}

}  // namespace korvel
