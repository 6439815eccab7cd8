#include "nav/aircraft/FuelTank.h"

#include <algorithm>
#include <utility>

namespace korvel {

void FuelTank::step(bool flies, double burnPerHour, std::int64_t nowMs) {
    constexpr double kMsPerHour = 3'600'000;
    const std::int64_t since = std::exchange(steppedMs_, nowMs).value_or(nowMs);
    if (left_ && flies)
        left_ =
            std::max(0.0, *left_ - burnPerHour * static_cast<double>(nowMs - since) / kMsPerHour);
}

}  // namespace korvel
