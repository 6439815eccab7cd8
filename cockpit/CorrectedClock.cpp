#include "cockpit/CorrectedClock.h"

#include "platform/ZoneTime.h"

namespace korvel {

void CorrectedClock::setNow(std::optional<std::int64_t> unixSeconds) {
    correctionSec_ = unixSeconds ? *unixSeconds - base_.unixSeconds() : 0;
}

LocalTime CorrectedClock::localNow() const {
    return correctionSec_ == 0 ? base_.localNow() : localTimeOf(base_, unixSeconds());
}

}  // namespace korvel
