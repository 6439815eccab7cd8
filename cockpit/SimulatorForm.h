#pragma once

#include <string>

#include "cockpit/SimulatorStart.h"

namespace korvel {

/// What the pilot types to start or to change the simulated aircraft.
struct SimulatorForm {
    std::string latitude;   ///< degrees, south negative
    std::string longitude;  ///< degrees, west negative
    std::string heading;    ///< magnetic degrees, 0 to 360
    std::string speed;      ///< knots
    std::string altitude;   ///< feet
    std::string windFrom;   ///< degrees true, 0 to 360; empty as 0
    std::string windSpeed;  ///< knots; empty for still air

    static SimulatorForm of(const SimulatorStart& start);

    /// The values typed; whether it follows the plan is not among them. The message for the pilot
    /// names the first that will not do, and `start` is then as it was; empty on success.
    [[nodiscard]] std::string read(SimulatorStart& start) const;
};

}  // namespace korvel
