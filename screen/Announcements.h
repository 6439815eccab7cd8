#pragma once

#include <optional>
#include <string>

#include "cockpit/CockpitData.h"

namespace korvel {

/// Tells what is flown to next, that an approach has begun or ended, and that there is no more to
/// replay: once for each.
class Announcements {
 public:
    /// After each tick; the message for the pilot, empty for nothing new.
    std::string tick(const CockpitData& data);

 private:
    std::string waypoint(const CockpitData& data);
    std::string approach(const CockpitData& data);

    std::string waypoint_;                 // that was told last
    std::optional<LandingRunway> runway_;  // likewise
    bool sourceEnded_ = false;
};

}  // namespace korvel
