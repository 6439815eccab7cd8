#include "platform/SystemClock.h"

#include <algorithm>
#include <ctime>
#include <windows.h>

namespace korvel {

std::int64_t SystemClock::tickMs() const {
    return std::max<std::int64_t>(static_cast<std::int64_t>(GetTickCount64()), 1);
}

std::int64_t SystemClock::unixSeconds() const { return std::time(nullptr); }

LocalTime SystemClock::localNow() const {
    SYSTEMTIME local{};
    GetLocalTime(&local);
    return {.year = local.wYear,
            .month = local.wMonth,
            .day = local.wDay,
            .hour = local.wHour,
            .minute = local.wMinute,
            .second = local.wSecond};
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
    return moment + std::max<std::time_t>(_mkgmtime(&asked) - _mkgmtime(&found), 0);
}

}  // namespace korvel
