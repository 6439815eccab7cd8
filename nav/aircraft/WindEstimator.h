#pragma once

#include <cstdint>
#include <deque>
#include <optional>

#include "nav/aircraft/Wind.h"

namespace korvel {

/// Finds the wind from turns: flown at one airspeed, the velocities over the ground lie on a circle
/// whose middle is the wind. Only what was flown within the last minutes, over half a circle of
/// headings at least, tells it. One thread.
class WindEstimator {
 public:
    struct Estimate {
        Wind wind;
        double airspeedKt = 0;
        std::int64_t madeMs = 0;  ///< when the aircraft last turned
    };

    /// Once per tick with what is known of the motion over the ground.
    void add(std::int64_t nowMs, double trackTrueDeg, double groundSpeedKt);
    /// The aircraft is another one, or elsewhere.
    void forget();

    /// Of the last turn that told it; nothing before, and when that is too long ago at `nowMs`.
    [[nodiscard]] std::optional<Estimate> estimate(std::int64_t nowMs) const;

 private:
    /// A velocity over the ground, knots.
    struct Sample {
        std::int64_t atMs;
        double east;
        double north;
    };

    void fit(std::int64_t nowMs);

    std::deque<Sample> samples_;  ///< oldest first, each on another track than the one before
    std::optional<double> lastTrackDeg_;
    std::optional<Estimate> estimate_;
};

}  // namespace korvel
