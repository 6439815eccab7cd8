#pragma once

#include <optional>

namespace korvel {

/// Where the wind blows from, degrees true, and how fast, knots.
struct Wind {
    double fromTrueDeg = 0;
    double speedKt = 0;

    friend bool operator==(const Wind&, const Wind&) = default;
};

/// The speed over the ground along a true course, knots, of who keeps to it through the air; in
/// still air without a wind. Nothing where the wind is too strong for the aircraft to come forward.
std::optional<double> groundSpeedKt(double courseTrueDeg, double airspeedKt,
                                    const std::optional<Wind>& wind);

}  // namespace korvel
