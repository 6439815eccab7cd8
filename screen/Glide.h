#pragma once

#include <cstdint>
#include <deque>
#include <optional>

#include "paint/Canvas.h"

namespace korvel {

/// The motion that a map keeps when the finger that threw it has left: as fast as that was at
/// last, and slower and slower. A finger that has stopped before it leaves throws nothing.
class Glide {
 public:
    /// A finger moves on the map.
    void note(Point at, std::int64_t nowMs);
    /// It leaves; the motion begins if it was fast enough.
    void release(std::int64_t nowMs);
    /// At once, or when another finger comes down.
    void stop();
    [[nodiscard]] bool moves() const { return lastMs_.has_value(); }
    /// How far since the last step, pixels; the last one ends the motion.
    Point step(std::int64_t nowMs);

 private:
    struct Sample {
        Point at;
        std::int64_t ms = 0;
    };

    std::deque<Sample> samples_;  ///< of the last moments
    Point speed_;                 ///< pixels in a millisecond
    std::optional<std::int64_t> lastMs_;
};

}  // namespace korvel
