#pragma once

#include <cstdint>
#include <string>

#include "platform/Clock.h"

namespace korvel {

// Calendar time of the user's zone as one number: seconds since 1970-01-01T00:00:00 of that
// calendar. Differences are right as long as the zone's offset stays the same.

std::int64_t localSeconds(const LocalTime& time);
LocalTime localTimeAt(std::int64_t seconds);

/// False for a day or a time that no calendar has.
bool isCalendarTime(const LocalTime& time);

/// "20260228"
std::string dateText(const LocalTime& time);
/// The time with `separator` between its two or, with seconds, three parts.
std::string timeText(const LocalTime& time, bool withSeconds, const char* separator);

}  // namespace korvel
