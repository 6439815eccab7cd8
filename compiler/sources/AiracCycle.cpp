#include "compiler/sources/AiracCycle.h"

#include <charconv>
#include <chrono>
#include <system_error>

namespace korvel {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr days kCycle{28};

/// The first effective date of the year: cycle dates count on from 10 January 2013 both ways.
sys_days firstEffective(int year) {
    constexpr sys_days kKnown{std::chrono::year{2013} / 1 / 10};
    const sys_days newYear{std::chrono::year{year} / 1 / 1};
    const auto past = ((newYear - kKnown) % kCycle + kCycle) % kCycle;
    return past == days{0} ? newYear : newYear + (kCycle - past);
}

sys_days effective(const AiracCycle& cycle) {
    return firstEffective(cycle.year) + kCycle * (cycle.number - 1);
}

sys_days dayOf(int ymd) {
    const auto part = [ymd](int divisor) { return static_cast<unsigned>(ymd / divisor % 100); };
    return year_month_day{std::chrono::year{ymd / 10000}, std::chrono::month{part(100)},
                          std::chrono::day{part(1)}};
}

bool takeInt(std::string_view& text, int& value) {
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return error == std::errc{};
}

}  // namespace

std::optional<AiracCycle> AiracCycle::namedIn(std::string_view headerLine) {
    constexpr std::string_view kWords = "data cycle ";
    const auto at = headerLine.find(kWords);
    if (at == std::string_view::npos)
        return std::nullopt;
    auto text = headerLine.substr(at + kWords.size());
    AiracCycle cycle;
    if (!takeInt(text, cycle.year))
        return std::nullopt;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        if (!takeInt(text, cycle.number))
            return std::nullopt;
    } else {
        cycle.number = cycle.year % 100;
        cycle.year = 2000 + cycle.year / 100;
    }
    const bool sound = cycle.year >= 1998 && cycle.year < 2100 && cycle.number >= 1 &&
                       cycle.number <= 14 && effective(cycle) < firstEffective(cycle.year + 1);
    return sound ? std::optional(cycle) : std::nullopt;
}

std::optional<AiracCycle> AiracCycle::inForceOn(int ymd) {
    if (!isDateYmd(ymd) || ymd < 19980201 || ymd >= 21000101)
        return std::nullopt;
    const sys_days day = dayOf(ymd);
    int year = ymd / 10000;
    if (day < firstEffective(year))
        --year;
    return AiracCycle{year, static_cast<int>((day - firstEffective(year)) / kCycle) + 1};
}

int AiracCycle::expiryYmd() const {
    const year_month_day date{effective(*this) + kCycle};
    return static_cast<int>(date.year()) * 10000 +
           static_cast<int>(static_cast<unsigned>(date.month()) * 100 +
                            static_cast<unsigned>(date.day()));
}

bool isDateYmd(int ymd) {
    if (ymd < 0)
        return false;
    const auto part = [ymd](int divisor) { return static_cast<unsigned>(ymd / divisor % 100); };
    const year_month_day date{std::chrono::year{ymd / 10000}, std::chrono::month{part(100)},
                              std::chrono::day{part(1)}};
    return date.ok() && ymd >= 19000101 && ymd <= 29991231;
}

}  // namespace korvel
