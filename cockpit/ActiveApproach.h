#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "geo/Variation.h"
#include "nav/alarms/FlightAlarms.h"
#include "nav/approach/ApproachMode.h"
#include "nav/approach/LandingRunway.h"
#include "nav/leg/ActiveNavigation.h"

namespace korvel {

class NavDatabase;
struct CockpitData;
class DatabaseRecord;
struct Settings;

/// The approach that is flown: reads the runways, decides with ApproachMode which one is flown to,
/// and puts its figures in the place of the leg's. Main thread only.
class ActiveApproach {
 public:
    explicit ActiveApproach(NavDatabase& database) : database_(database) {}

    /// Once per tick, while the position is known. `destination` is where the flight ends,
    /// once it is what is flown to; null for none.
    void tick(const Settings& settings, const Variation& variation,
              const ActiveNavigation::Aircraft& aircraft,
              const std::shared_ptr<const DatabaseRecord>& destination, std::int64_t nowMs);

    /// The runways that the pilot may want: the destination's, also while others are flown to
    /// before it (`planEnd`; null for none) if it is not far, else those of the nearest airport
    /// that has any. The one to be reached with the least turning comes first. Empty when there is
    /// none near.
    [[nodiscard]] std::vector<LandingRunway> offered(GeoPoint position,
                                                     const DatabaseRecord* planEnd) const;

    /// To be called when other databases have come into use: they may know other runways.
    void forget() { destinationKey_.clear(); }

    ApproachMode& mode() { return mode_; }
    [[nodiscard]] const ApproachMode& mode() const { return mode_; }

    /// What the alarms of the flight are to know.
    void describe(FlightSituation& situation, GeoPoint position) const;
    /// Fills what the pages show in the place of the leg; nothing while no runway is approached.
    void collect(CockpitData& data, const Variation& variation) const;

 private:
    [[nodiscard]] std::vector<LandingRunway> nearestRunways(GeoPoint position) const;
    [[nodiscard]] std::vector<LandingRunway> runwaysOf(const DatabaseRecord& record) const;

    NavDatabase& database_;
    ApproachMode mode_;
    std::string destinationKey_;
    std::vector<LandingRunway> runways_;  ///< the destination's
};

}  // namespace korvel
