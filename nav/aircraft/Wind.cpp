#include "nav/aircraft/Wind.h"

#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

/// Slower than this over the ground is no flight to anywhere.
constexpr double kSlowestKt = 5;

}  // namespace

std::optional<double> groundSpeedKt(double courseTrueDeg, double airspeedKt,
                                    const std::optional<Wind>& wind) {
    const double angle = wind ? (wind->fromTrueDeg - courseTrueDeg) * kDegToRad : 0;
    const double speed = wind ? wind->speedKt : 0;
    const double across = speed * std::sin(angle);
    const double along = airspeedKt * airspeedKt - across * across;
    if (along <= 0)
        return std::nullopt;
    const double ground = std::sqrt(along) - speed * std::cos(angle);
    return ground >= kSlowestKt ? std::optional(ground) : std::nullopt;
}

}  // namespace korvel
