#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "geo/GeoPoint.h"
#include "nav/aircraft/Wind.h"

namespace korvel {

class NavDatabase;
struct PlanWaypoint;
struct Settings;

/// Where and how the simulated aircraft begins.
struct SimulatorStart {
    GeoPoint position;
    std::int32_t headingMag = 360;  ///< 0 to 360
    double speedKt = 120;
    std::int32_t altitudeFt = 2500;
    Wind wind{};
    /// It climbs and descends to the altitudes that the plan wants.
    bool followsPlan = false;
};

/// Following the plan, at the settings' position, else where the plan begins, else at a default
/// field; heading for the first place of the plan that lies elsewhere.
SimulatorStart proposedSimulatorStart(const Settings& settings,
                                      const std::vector<PlanWaypoint>& plan,
                                      const NavDatabase& database);
/// The same at a place that the pilot chose; without an altitude at the usual one.
SimulatorStart simulatorStartAt(GeoPoint position, std::optional<std::int32_t> altitudeFt,
                                const std::vector<PlanWaypoint>& plan, const NavDatabase& database);

}  // namespace korvel
