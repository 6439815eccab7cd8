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

}  // namespace korvel
