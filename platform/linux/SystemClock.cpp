#include "platform/SystemClock.h"

#include <algorithm>
#include <ctime>

namespace korvel {

std::int64_t SystemClock::tickMs() const {
    // The boot clock, unlike the monotonic one, counts the time that the computer sleeps.
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const std::int64_t ms = std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
    return std::max<std::int64_t>(ms, 1);
}

std::int64_t SystemClock::unixSeconds() const { return std::time(nullptr); }

LocalTime SystemClock::localNow() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    // A leap second has no place in the formats that this time is written to.
    return {.year = local.tm_year + 1900,
            .month = local.tm_mon + 1,
            .day = local.tm_mday,
            .hour = local.tm_hour,
            .minute = local.tm_min,
            .second = std::min(local.tm_sec, 59)};
}

}  // namespace korvel
