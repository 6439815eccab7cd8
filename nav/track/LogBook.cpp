#include "nav/track/LogBook.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "base/CsvFields.h"
#include "base/TextLines.h"
#include "base/TextNumbers.h"

namespace korvel {
namespace {

constexpr std::size_t kFields = 7;
constexpr std::size_t kLongestPlace = 60;
constexpr int kMostMinutes = 100 * 60;  ///< a longer flight is a slip of whoever edited the file

std::optional<int> wholeNumber(std::string_view field) {
    const auto number = scanInt(field);
    return field.empty() ? number : std::nullopt;
}

/// "20260501".
std::optional<LocalTime> dayOf(std::string_view field) {
    const auto number = field.size() == 8 ? wholeNumber(field) : std::nullopt;
    if (!number || *number < 0)
        return std::nullopt;
    const LocalTime day{
        .year = *number / 10000, .month = *number / 100 % 100, .day = *number % 100};
    return isCalendarTime(day) ? std::optional(day) : std::nullopt;
}

/// Fields by number: 0 date, 1 off time, 2 off place, 3 on time, 4 on place, 5 minutes, 6 hours.
std::optional<LoggedFlight> flightOf(const CsvFields& fields) {
    const auto day = dayOf(fields[0]);
    const auto lasted = wholeNumber(fields[5]);
    const std::size_t longest =
        std::max({fields[1].size(), fields[2].size(), fields[3].size(), fields[4].size()});
    if (fields.size() != kFields || !day || !lasted || *lasted < 0 || *lasted > kMostMinutes ||
        longest > kLongestPlace)
        return std::nullopt;
    return LoggedFlight{.day = *day,
                        .off = std::string(fields[1]),
                        .from = std::string(fields[2]),
                        .on = std::string(fields[3]),
                        .to = std::string(fields[4]),
                        .minutes = *lasted};
}

void add(const LoggedFlight& flight, LogBook::Total& total) {
    ++total.flights;
    total.minutes += flight.minutes;
}

}  // namespace

LogBook LogBook::read(std::string_view text) {
    LogBook book;
    TextLines lines(text);
    CsvFields fields;
    for (std::string_view line; lines.next(line);) {
        if (line.empty())
            continue;
        fields.take(line);
        fields.close();
        if (auto flight = flightOf(fields))
            book.flights.push_back(std::move(*flight));
        else
            ++book.unreadable;
    }
    // Lines of one day stand in the order of the flights, which a log that was put together from
    // two need not do with its days.
    std::ranges::reverse(book.flights);
    std::ranges::stable_sort(book.flights, std::greater(),
                             [](const LoggedFlight& flight) { return dateNumber(flight.day); });
    return book;
}

LogBook::Total LogBook::all() const {
    Total total;
    for (const LoggedFlight& flight : flights)
        add(flight, total);
    return total;
}

LogBook::Total LogBook::lastDays(int days, const LocalTime& today) const {
    constexpr std::int64_t kSecondsPerDay = 86400;
    const std::int64_t now = localSeconds(today);
    Total total;
    for (const LoggedFlight& flight : flights) {
        const std::int64_t ago = now - localSeconds(flight.day);
        if (ago >= 0 && ago / kSecondsPerDay < days)
            add(flight, total);
    }
    return total;
}

}  // namespace korvel
