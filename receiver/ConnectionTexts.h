#pragma once

#include <string_view>

namespace korvel {

// What is said about a port that does not open and about a receiver that is not understood yet.
// Whoever explains one of them to the pilot recognises it by these.

inline constexpr std::string_view kInvalidPortText = "Invalid Port";
inline constexpr std::string_view kPortOpenText = "Port already open!";
inline constexpr std::string_view kPortMissingText = "Used or Non-existent Port!";
inline constexpr std::string_view kPortUsedText = "Port Being Used";
inline constexpr std::string_view kNoActivityText = "No Gps Rcvr Activity";
inline constexpr std::string_view kWaitingForNmeaText = "Waiting for NMEA Data";
inline constexpr std::string_view kWaitingForCourseText = "Waiting for NMEA gprmc or gpvtg";
inline constexpr std::string_view kWaitingForAltitudeText = "Waiting for NMEA gpgga";

}  // namespace korvel
