#include "base/Calendar.h"

#include <chrono>
#include <cstddef>

#include "base/Ascii.h"
#include "base/TextNumbers.h"

namespace korvel {
namespace {

std::chrono::year_month_day dateOf(const LocalTime& time) {
    return std::chrono::year(time.year) / std::chrono::month(static_cast<unsigned>(time.month)) /
           std::chrono::day(static_cast<unsigned>(time.day));
}

}  // namespace

std::int64_t localSeconds(const LocalTime& time) {
    const auto newYear = std::chrono::year(time.year) / std::chrono::January / 1;
    const auto day = std::chrono::sys_days(newYear + std::chrono::months(time.month - 1)) +
                     std::chrono::days(time.day - 1);
    const std::chrono::sys_seconds moment = day + std::chrono::hours(time.hour) +
                                            std::chrono::minutes(time.minute) +
                                            std::chrono::seconds(time.second);
    return moment.time_since_epoch().count();
}

LocalTime localTimeAt(std::int64_t seconds) {
    const std::chrono::sys_seconds moment{std::chrono::seconds(seconds)};
    const auto midnight = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss clock(moment - midnight);
    return {.year = int{date.year()},
            .month = static_cast<int>(unsigned{date.month()}),
            .day = static_cast<int>(unsigned{date.day()}),
            .hour = static_cast<int>(clock.hours().count()),
            .minute = static_cast<int>(clock.minutes().count()),
            .second = static_cast<int>(clock.seconds().count())};
}

bool isCalendarTime(const LocalTime& time) {
    const auto within = [](int value, int end) { return value >= 0 && value < end; };
    return time.month >= 1 && time.day >= 1 && dateOf(time).ok() && within(time.hour, 24) &&
           within(time.minute, 60) && within(time.second, 60);
}

std::string dateText(const LocalTime& time) {
    return zeroPadded(time.year, 4) + zeroPadded(time.month, 2) + zeroPadded(time.day, 2);
}

std::uint32_t dateNumber(const LocalTime& time) {
    return static_cast<std::uint32_t>((time.year * 100 + time.month) * 100 + time.day);
}

std::string dashedDate(std::uint32_t yyyymmdd) {
    std::string date = formatInt(yyyymmdd);
    if (date.size() == 8)
        date.insert(6, "-").insert(4, "-");
    return date;
}

std::string timeText(const LocalTime& time, bool withSeconds, const char* separator) {
    std::string result = zeroPadded(time.hour, 2) + separator + zeroPadded(time.minute, 2);
    if (withSeconds)
        result += separator + zeroPadded(time.second, 2);
    return result;
}

std::string hoursAndMinutes(std::int64_t minutes) {
    constexpr std::int64_t kMinutesPerHour = 60;
    return formatInt(minutes / kMinutesPerHour) + ":" + zeroPadded(minutes % kMinutesPerHour, 2);
}

}  // namespace korvel
