#pragma once

#include <cstdint>
#include <string>

namespace korvel {

/// Calendar time in the user's time zone.
struct LocalTime {
    int year = 1970;
    int month = 1;  ///< 1 to 12
    int day = 1;    ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

// Calendar time of the user's zone as one number: seconds since 1970-01-01T00:00:00 of that
// calendar. Differences are right as long as the zone's offset stays the same.

/// Months and days out of range run on into the next ones.
std::int64_t localSeconds(const LocalTime& time);
LocalTime localTimeAt(std::int64_t seconds);

/// False for a day or a time that no calendar has.
bool isCalendarTime(const LocalTime& time);

/// "20260228", the number 20260228, and such a number as "2026-02-28" (of other lengths as it is).
std::string dateText(const LocalTime& time);
std::uint32_t dateNumber(const LocalTime& time);
std::string dashedDate(std::uint32_t yyyymmdd);

/// The time with `separator` between its two or, with seconds, three parts.
std::string timeText(const LocalTime& time, bool withSeconds, const char* separator);

/// How long something takes, "1:05", as many hours as there are; minutes from 0.
std::string hoursAndMinutes(std::int64_t minutes);

}  // namespace korvel
