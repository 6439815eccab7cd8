#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "nav/alarms/AlarmBoard.h"

namespace korvel {

struct CockpitData;

/// A mark that the pilot has before the eyes on every page: how the flight is flown, and how far
/// what is shown can be trusted.
struct Mode {
    std::string words;  ///< "SIM", "CHARTS EXPIRED 2013-05-02"
    std::string
        shortWords;  ///< where there is no room; the same where there is nothing to leave out
    /// Nothing for a state that is neither good nor bad.
    std::optional<AlarmUrgency> urgency;

    friend bool operator==(const Mode&, const Mode&) = default;
};

/// Those in force, in the order in which they stand side by side. A new one is a row of the table
/// in Modes.cpp.
std::vector<Mode> modesOf(const CockpitData& data);

}  // namespace korvel
