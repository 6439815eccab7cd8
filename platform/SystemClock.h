#pragma once

#include "platform/Clock.h"

namespace korvel {

/// The system's clocks. Ticks go on counting while the computer sleeps, so that nothing that was
/// measured before a sleep looks fresh after it.
class SystemClock final : public Clock {
 public:
    std::int64_t tickMs() const override;
    std::int64_t unixSeconds() const override;
    LocalTime localNow() const override;
    std::int64_t unixSecondsAt(const LocalTime& local) const override;
};

}  // namespace korvel
