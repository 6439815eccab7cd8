#pragma once

#include <cstdint>

#include "base/Calendar.h"

namespace korvel {

/// Source of ticks and of the time of day. Whoever needs either is handed a Clock, so that tests
/// and the headless flight run on a virtual one. Implementations may be called from any thread.
class Clock {
 public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    /// Milliseconds since an arbitrary start; never runs backwards and is always above 0.
    virtual std::int64_t tickMs() const = 0;

    /// Whole seconds since 1970-01-01T00:00:00 UTC by the wall clock, which the user may set.
    virtual std::int64_t unixSeconds() const = 0;

    /// The wall clock in the user's time zone.
    virtual LocalTime localNow() const = 0;

    /// The moment of a local time, in seconds like unixSeconds(). What clocks that are put forward
    /// leave out counts as if they had not been; what they say twice when they are put back is one
    /// of the two. Days beyond the end of a month and months beyond the year's run on.
    virtual std::int64_t unixSecondsAt(const LocalTime& local) const = 0;
};

}  // namespace korvel
