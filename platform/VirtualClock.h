#pragma once

#include <cstdint>

#include "base/Guarded.h"
#include "platform/Clock.h"

namespace korvel {

/// A clock that stands still until it is moved: for tests and for flying without a window. Ticks
/// start at 1; the wall clock starts at `localStart` and moves with the ticks, by whole
/// milliseconds. Reading and moving are safe from any thread.
class VirtualClock final : public Clock {
 public:
    /// `utcOffsetSeconds` is what the time zone adds to UTC: local = UTC + offset.
    explicit VirtualClock(const LocalTime& localStart = {.year = 2026},
                          std::int64_t utcOffsetSeconds = 0);
    /// In the time zone of another clock, which must outlive it. Its own local time runs on where
    /// the zone's clocks change.
    VirtualClock(const LocalTime& localStart, const Clock& zone);

    std::int64_t tickMs() const override;
    std::int64_t unixSeconds() const override;
    LocalTime localNow() const override;
    std::int64_t unixSecondsAt(const LocalTime& local) const override;

    /// Moves ticks and wall clock together. A negative step is ignored: ticks never run backwards.
    void advanceMs(std::int64_t ms);

    /// Moves the ticks alone, also backwards: a test may want to stand near an edge. Values below
    /// 1 count as 1.
    void setTickMs(std::int64_t tick);

    /// Sets the wall clock alone, as a user does.
    void setLocalNow(const LocalTime& local);

 private:
    struct State {
        std::int64_t tickMs = 1;
        std::int64_t localMs = 0;  ///< since 1970-01-01T00:00:00 local time
    };

    Guarded<State> state_;
    std::int64_t utcOffsetSeconds_;  ///< at the start
    const Clock* zone_ = nullptr;    ///< null for a zone whose offset never changes
};

}  // namespace korvel
