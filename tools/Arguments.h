#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "platform/Clock.h"

namespace korvel {

/// No two places on Earth are farther apart: whoever asks within this asks for all.
inline constexpr double kHalfwayRoundNm = 10800.0;

// Values on the command line. All of a text must be the value; what is not is wrong usage and
// thrown as such. The user's locale does not matter.

[[noreturn]] void usageError(const std::string& message);

double toNumber(std::string_view text);
int toInt(std::string_view text);

/// Numbers separated by commas, `least` to `most` of them.
std::vector<double> toNumbers(std::string_view text, std::size_t least, std::size_t most);

/// From degrees, north and east positive, in -90 to 90 and -180 to 180.
GeoPoint toPosition(double latDeg, double lonDeg);
/// "LAT,LON".
GeoPoint toPosition(std::string_view text);

/// "YYYY-MM-DDTHH:MM:SS", a time that the calendar has.
LocalTime toLocalTime(std::string_view text);

}  // namespace korvel
