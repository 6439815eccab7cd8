#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cockpit/NearAirport.h"
#include "nav/leg/ActiveNavigation.h"

namespace korvel {

class Flight;
class NavDatabase;
struct CockpitData;

/// A field to land at when there is no choice.
struct EmergencyField {
    NearAirport airport;
    std::optional<int> arrivalFt{};  ///< as glideArrivalFt() tells

    [[nodiscard]] bool isInGlide() const { return arrivalFt && *arrivalFt >= 0; }
    /// Brings what changes in flight up to date.
    void follow(const CockpitData& data);
};

/// The best first: those within gliding range, of these hard runways and long ones (beyond 4000 ft
/// longer is no better), then whichever is nearer. The others follow by their distance.
void rankFields(std::vector<EmergencyField>& fields);

/// Flies to a field at once and, when that is over, again what was flown before. Main thread only.
class Emergency {
 public:
    /// Both must outlive it.
    Emergency(Flight& flight, const NavDatabase& database) : flight_(flight), database_(database) {}

    /// Ranked, private airports among them; around where the aircraft was last seen, and none while
    /// that is not known.
    [[nodiscard]] std::vector<EmergencyField> fields(const CockpitData& data) const;

    /// Flies direct to it; the text to show.
    std::string flyTo(const NearAirport& airport);
    [[nodiscard]] bool isOn() const { return before_.has_value(); }
    /// It is over when something else is flown. After each tick and each command.
    void update();
    /// Flies again what was flown before the first field; the text to show.
    std::string end();

 private:
    Flight& flight_;
    const NavDatabase& database_;
    std::optional<ActiveNavigation::Flown> before_;  // while it is on
    std::string field_;                              // the key of what it flies to
};

}  // namespace korvel
