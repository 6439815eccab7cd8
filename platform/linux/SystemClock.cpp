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

std::int64_t SystemClock::unixSecondsAt(const LocalTime& local) const {
    std::tm asked{};
    asked.tm_year = local.year - 1900;
    asked.tm_mon = local.month - 1;
    asked.tm_mday = local.day;
    asked.tm_hour = local.hour;
    asked.tm_min = local.minute;
    asked.tm_sec = local.second;
    asked.tm_isdst = -1;
    std::tm found = asked;
    const std::time_t moment = std::mktime(&found);
    // For a time that is left out the system may answer with one before the gap.
    return moment + std::max<std::time_t>(timegm(&asked) - timegm(&found), 0);
}

}  // namespace korvel
