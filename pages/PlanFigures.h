#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cockpit/CockpitData.h"

namespace korvel {

/// What the flight-plan page says in a row besides the row's own. Distances are nautical miles.
struct PlanFigures {
    std::optional<double> courseMagDeg;
    std::optional<double> legNm;    ///< to the waypoint that is flown to: what is left
    std::optional<double> totalNm;  ///< from the aircraft; from the first entry before the flight
    std::optional<double> legHours;
    std::optional<double> totalHours;  ///< from now; only for what is ahead in flight
    /// Left there, in the aircraft's unit; below 0 when it does not last so far. Only where both
    /// the aircraft and its fuel are known.
    std::optional<double> fuelLeft{};

    friend bool operator==(const PlanFigures&, const PlanFigures&) = default;
};

/// One for each row. While the plan is flown, distances and times count from the aircraft and rows
/// that were passed have none; before that they count from the first entry, without a time of
/// arrival. Times are at the present ground speed; who stands or taxies has those that the aircraft
/// makes as planned, with the wind if one is known, and without an aircraft none.
std::vector<PlanFigures> planFigures(const CockpitData& data);

/// Whether the times are as planned, not at the present ground speed.
bool timesArePlanned(const CockpitData& data);

/// "1:05" hours and minutes, rounded; "---" when absent or a hundred hours and more.
std::string durationText(const std::optional<double>& hours);
/// The time of day "14:05" so many hours after `now`, rounded to the minute.
std::string arrivalText(const std::optional<double>& hours, const LocalTime& now);

}  // namespace korvel
