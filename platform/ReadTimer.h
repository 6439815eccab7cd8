#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

#include "platform/SerialDevice.h"

namespace korvel {

/// When a read that is under way ends by its timeouts; for back ends that keep them themselves.
class ReadTimer {
 public:
    using Time = std::chrono::steady_clock::time_point;

    ReadTimer(const SerialTimeouts& timeouts, std::size_t wantedBytes, Time start);

    /// At least one byte came: the gap is counted from here.
    void noteBytes(Time now);

    /// How long to wait for the next byte, rounded up; 0 when the read is over, nothing when there
    /// is no limit.
    std::optional<std::chrono::milliseconds> left(Time now) const;

 private:
    std::chrono::milliseconds interval_;
    std::optional<Time> totalEnd_;
    std::optional<Time> gapEnd_;
};

}  // namespace korvel
