#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "nav/alarms/AlarmBoard.h"

namespace korvel {

/// What the alarms of the flight itself are judged by. What is absent is unknown.
struct FlightSituation {
    /// Where the flight ends, once it is what is flown to.
    struct Destination {
        std::string name{};
        double distanceNm = 0;
        bool airport = false;
        std::optional<std::int32_t> elevationFt{};
    };

    std::optional<double> crossTrackNm{};  ///< nothing before the course has been joined
    double fullScaleNm = 5;                ///< cross-track at the HSI's outermost mark
    std::optional<Destination> destination{};
    std::optional<double> groundSpeedKt{};
    std::optional<std::int32_t> altitudeFt{};
    bool gearWarning = false;  ///< the pilot wants it
    int approachSpeedKt = 75;
};

/// Adds the alarms of the flight: gear, off course, arrival. The situation must outlive the board
/// and be up to date whenever that is updated.
void addFlightAlarms(AlarmBoard& board, const FlightSituation& situation);

}  // namespace korvel
