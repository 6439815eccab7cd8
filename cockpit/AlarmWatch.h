#pragma once

#include <cstdint>

#include "nav/alarms/AlarmBoard.h"
#include "nav/alarms/FlightAlarms.h"
#include "nav/alarms/LegIntercept.h"

namespace korvel {

class ActiveApproach;
class ActiveNavigation;
class DatabaseRecord;
struct Settings;

/// Watches the flight for what needs the pilot's attention: describes it to its alarms once per
/// tick. Main thread only.
class AlarmWatch {
 public:
    AlarmWatch() { addFlightAlarms(board_, situation_); }
    AlarmWatch(const AlarmWatch&) = delete;
    AlarmWatch& operator=(const AlarmWatch&) = delete;
    ~AlarmWatch() = default;

    /// Other sources of alarms may join.
    AlarmBoard& board() { return board_; }
    [[nodiscard]] const AlarmBoard& board() const { return board_; }

    /// Once per tick, while the position is known. `destination` is where the flight ends, once it
    /// is what is flown to; null for none.
    void update(const Settings& settings, const ActiveNavigation& navigation,
                const ActiveApproach& approach, const DatabaseRecord* destination,
                std::int64_t nowMs);
    /// The aircraft is another one, or elsewhere.
    void forget();

 private:
    FlightSituation situation_;
    LegIntercept intercept_;
    AlarmBoard board_;  // judges by the situation
};

}  // namespace korvel
