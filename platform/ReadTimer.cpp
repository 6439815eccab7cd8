#include "platform/ReadTimer.h"

#include <algorithm>
#include <cstdint>

namespace korvel {

using std::chrono::milliseconds;

ReadTimer::ReadTimer(const SerialTimeouts& timeouts, std::size_t wantedBytes, Time start)
    : interval_(timeouts.readIntervalMs) {
    if (timeouts.readMultiplierMs != 0 || timeouts.readConstantMs != 0) {
        const std::uint64_t total =
            std::uint64_t{timeouts.readMultiplierMs} * wantedBytes + timeouts.readConstantMs;
        totalEnd_ = start + milliseconds(total);
    }
}

void ReadTimer::noteBytes(Time now) {
    if (interval_.count() != 0)
        gapEnd_ = now + interval_;
}

std::optional<milliseconds> ReadTimer::left(Time now) const {
    std::optional<Time> end = totalEnd_;
    if (gapEnd_ && (!end || *gapEnd_ < *end))
        end = gapEnd_;
    if (!end)
        return std::nullopt;
    return std::max(milliseconds(0), std::chrono::ceil<milliseconds>(*end - now));
}

}  // namespace korvel
