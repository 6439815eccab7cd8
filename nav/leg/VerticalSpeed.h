#pragma once

#include <cstdint>
#include <deque>
#include <optional>

namespace korvel {

/// The vertical speed out of the altitudes of the last seconds. Receivers give whole feet or
/// metres, so that a rate out of two neighbouring values would jump. User-interface thread only.
class VerticalSpeed {
 public:
    /// An altitude at a tick, once per update; nothing for one that is not known, which forgets
    /// all that came before.
    void add(std::int64_t tickMs, std::optional<std::int32_t> altitudeFt);

    /// The altitudes to come are another source's.
    void forget() { samples_.clear(); }

    /// Feet per minute in steps of 10, up positive; nothing before 3 s of altitudes and
    /// beyond 100,000 ft/min.
    [[nodiscard]] std::optional<int> feetPerMinute() const;

 private:
    struct Sample {
        std::int64_t tickMs = 0;
        std::int32_t altitudeFt = 0;
    };

    std::deque<Sample> samples_;  ///< of the last 6 s, oldest first
};

}  // namespace korvel
