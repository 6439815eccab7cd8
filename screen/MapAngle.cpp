#include "screen/MapAngle.h"

#include <cmath>

namespace korvel {

int MapAngle::update(const CockpitData& data) {
    const bool moving = data.groundSpeedKt && *data.groundSpeedKt >= kSlowestKt;
    if (data.position && moving && data.trackTrueDeg)
        degrees_ = (static_cast<int>(std::lround(*data.trackTrueDeg)) % 360 + 360) % 360;
    return degrees_;
}

}  // namespace korvel
