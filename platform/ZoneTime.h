#pragma once

#include "platform/Clock.h"

namespace korvel {

/// The local time of a moment that is given like Clock::unixSeconds(), in the clock's time zone. Of
/// what clocks that are put back say twice it is one of the two.
LocalTime localTimeOf(const Clock& clock, std::int64_t unixSeconds);

}  // namespace korvel
