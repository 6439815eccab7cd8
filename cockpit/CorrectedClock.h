#pragma once

#include <optional>

#include "platform/Clock.h"

namespace korvel {

/// A clock that tells another time of day than the one it is made from: the receiver's, for which
/// the computer's need not be right. The ticks stay the base clock's, and so does the time zone.
/// Main thread only.
class CorrectedClock final : public Clock {
 public:
    /// The base must outlive it.
    explicit CorrectedClock(const Clock& base) : base_(base) {}

    /// What time it is now, like unixSeconds(); nothing for the base's.
    void setNow(std::optional<std::int64_t> unixSeconds);

    std::int64_t tickMs() const override { return base_.tickMs(); }
    std::int64_t unixSeconds() const override { return base_.unixSeconds() + correctionSec_; }
    LocalTime localNow() const override;
    std::int64_t unixSecondsAt(const LocalTime& local) const override {
        return base_.unixSecondsAt(local);
    }

 private:
    const Clock& base_;
    std::int64_t correctionSec_ = 0;
};

}  // namespace korvel
