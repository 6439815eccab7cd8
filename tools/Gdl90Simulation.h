#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

/// What a traffic receiver in an aircraft sends each second that flies north at 3500 ft with 110 kt
/// and meets others: one comes head on, one climbs across, one flies far above, one stands on the
/// ground. For trying out.
class Gdl90Simulation {
 public:
    explicit Gdl90Simulation(GeoPoint start) : start_(start) {}

    /// The frames of that second of the flight, 0 and on.
    [[nodiscard]] std::vector<std::string> second(int seconds) const;

 private:
    GeoPoint start_;
};

}  // namespace korvel
