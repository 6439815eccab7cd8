#pragma once

#include "platform/Clock.h"

namespace korvel {

/// A clock whose ticks can be put forward, so that a simulated flight may pass faster than time.
/// The time of day stays the base clock's. Main thread only.
class ShiftedClock final : public Clock {
 public:
    /// The base must outlive it.
    explicit ShiftedClock(const Clock& base) : base_(base) {}

    void advanceMs(std::int64_t ms) { shiftMs_ += ms; }

    std::int64_t tickMs() const override { return base_.tickMs() + shiftMs_; }
    std::int64_t unixSeconds() const override { return base_.unixSeconds(); }
    LocalTime localNow() const override { return base_.localNow(); }
    std::int64_t unixSecondsAt(const LocalTime& local) const override {
        return base_.unixSecondsAt(local);
    }

 private:
    const Clock& base_;
    std::int64_t shiftMs_ = 0;
};

}  // namespace korvel
