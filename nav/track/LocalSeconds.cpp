#include "nav/track/LocalSeconds.h"

#include <chrono>
#include <cstddef>

#include "base/TextNumbers.h"

namespace korvel {
namespace {

std::chrono::year_month_day dateOf(const LocalTime& time) {
    return std::chrono::year(time.year) / std::chrono::month(static_cast<unsigned>(time.month)) /
           std::chrono::day(static_cast<unsigned>(time.day));
}

std::string padded(int number, std::size_t width) {
    const std::string digits = formatInt(number);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

}  // namespace

std::int64_t localSeconds(const LocalTime& time) {
    const std::chrono::sys_days day = dateOf(time);
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
    return padded(time.year, 4) + padded(time.month, 2) + padded(time.day, 2);
}

std::string timeText(const LocalTime& time, bool withSeconds, const char* separator) {
    std::string result = padded(time.hour, 2) + separator + padded(time.minute, 2);
    if (withSeconds) {
        result += separator + padded(time.second, 2);
    }
    return result;
}

}  // namespace korvel
