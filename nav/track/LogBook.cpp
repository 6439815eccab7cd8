#include "nav/track/LogBook.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <utility>

#include "base/TextLines.h"
#include "base/TextNumbers.h"

namespace korvel {
namespace {

constexpr std::size_t kFields = 7;
constexpr std::size_t kLongestPlace = 60;
constexpr int kMostMinutes = 100 * 60;  ///< a longer flight is a slip of whoever edited the file

/// Nothing where there are fewer commas.
std::optional<std::array<std::string_view, kFields>> fieldsOf(std::string_view line) {
    std::array<std::string_view, kFields> fields;
    for (std::size_t i = 0; i < kFields; ++i) {
        const std::size_t end = line.find(',');
        if ((end == std::string_view::npos) != (i + 1 == kFields))
            return std::nullopt;
        fields.at(i) = line.substr(0, end);
        line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    }
    return fields;
}

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

std::optional<LoggedFlight> flightOf(std::string_view line) {
    const auto fields = fieldsOf(line);
    if (!fields)
        return std::nullopt;
    const auto& [date, off, from, on, to, minutes, hours] = *fields;
    const auto day = dayOf(date);
    const auto lasted = wholeNumber(minutes);
    const std::size_t longest = std::max({off.size(), from.size(), on.size(), to.size()});
    if (!day || !lasted || *lasted < 0 || *lasted > kMostMinutes || longest > kLongestPlace)
        return std::nullopt;
    return LoggedFlight{.day = *day,
                        .off = std::string(off),
                        .from = std::string(from),
                        .on = std::string(on),
                        .to = std::string(to),
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
    for (std::string_view line; lines.next(line);) {
        if (line.empty())
            continue;
        if (auto flight = flightOf(line))
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
