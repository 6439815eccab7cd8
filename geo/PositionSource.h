#pragma once

#include <cstdint>
#include <optional>

#include "geo/GeoPoint.h"

namespace korvel {

/// Where an aircraft is and how it moves: only values that are known and fresh.
struct Aircraft {
    GeoPoint position{};
    std::optional<double> groundSpeedKt{};
    double trackMag = kNoAngle;
    std::optional<std::int32_t> altitudeFt{};  ///< corrected by the altimeter setting
};

/// What can supply the aircraft's position in the receiver's place, such as the simulator.
/// User-interface thread only.
class PositionSource {
 public:
    virtual ~PositionSource() = default;

    /// Whether it does so now. Then what the receiver says does not count.
    [[nodiscard]] virtual bool isActive() const = 0;
    [[nodiscard]] virtual Aircraft aircraft() const = 0;
};

}  // namespace korvel
