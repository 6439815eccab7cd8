#pragma once

#include <optional>
#include <string_view>

namespace korvel {

/// One of the 28-day periods in which aeronautical data is published worldwide.
struct AiracCycle {
    int year = 0;    ///< four digits
    int number = 0;  ///< within the year, from 1 to 13, in some years 14

    /// The cycle named behind the words "data cycle" in a file's header line, as year and number
    /// ("2013.10") or in four digits ("2406"). Nothing when none is named or it does not exist.
    static std::optional<AiracCycle> namedIn(std::string_view headerLine);

    /// The cycle in force on that day (YYYYMMDD); nothing for no date of our time.
    static std::optional<AiracCycle> inForceOn(int ymd);

    /// In four digits, year first: 1310.
    [[nodiscard]] int yycc() const { return year % 100 * 100 + number; }
    /// The day on which the next cycle takes over, as YYYYMMDD: charts call it the expiry date.
    [[nodiscard]] int expiryYmd() const;
};

/// True for a calendar date written YYYYMMDD.
bool isDateYmd(int ymd);

}  // namespace korvel
