#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Calendar.h"

namespace korvel {

/// One line of the flight log; see FlightLog. Times and places are as they were written.
struct LoggedFlight {
    LocalTime day{};     ///< of the off time, or of when the flight was first seen; no time of day
    std::string off{};   ///< "10:02"; empty for a flight that was seen under way
    std::string from{};  ///< as off, and where the place had no name
    std::string on{};    ///< "11:14"
    std::string to{};    ///< empty where the place had no name
    int minutes = 0;
};

/// The flight log as it is read.
struct LogBook {
    struct Total {
        int flights = 0;
        std::int64_t minutes = 0;
    };

    std::vector<LoggedFlight> flights;  ///< the newest first
    std::size_t unreadable = 0;         ///< lines that say nothing, each left out

    /// Of a log's text, whatever it holds.
    static LogBook read(std::string_view text);

    [[nodiscard]] Total all() const;
    /// Of the days before and including `today`; whole days.
    [[nodiscard]] Total lastDays(int days, const LocalTime& today) const;
};

}  // namespace korvel
