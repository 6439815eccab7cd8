#include "receiver/ReceiverTime.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/Calendar.h"
#include "base/TextNumbers.h"

namespace korvel {
namespace {

constexpr std::int64_t kRoundSeconds = std::int64_t{1024} * 7 * 86400;
constexpr std::size_t kDigits = 6;
/// Two digits of a year: satellites fly since 1980.
constexpr int kFirstYear = 80;

/// Three numbers of two digits each.
std::optional<std::array<int, 3>> threePairs(std::string_view digits) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (digits.size() != kDigits || !std::ranges::all_of(digits, isDigit))
        return std::nullopt;
    return std::array{ParseInt(digits.substr(0, 2)), ParseInt(digits.substr(2, 2)),
                      ParseInt(digits.substr(4, 2))};
}

}  // namespace

std::optional<std::int64_t> receiverUnixSeconds(std::string_view time, std::string_view date,
                                                std::int64_t earliest) {
    const auto clock = threePairs(time.substr(0, time.find('.')));
    const auto day = threePairs(date);
    if (!clock || !day)
        return std::nullopt;
    const auto [hour, minute, second] = *clock;
    const LocalTime told{.year = (*day)[2] + ((*day)[2] < kFirstYear ? 2000 : 1900),
                         .month = (*day)[1],
                         .day = (*day)[0],
                         .hour = hour,
                         .minute = minute,
                         .second = std::min(second, 59)};  // a leap second has no place
    if (!isCalendarTime(told))
        return std::nullopt;
    const std::int64_t seconds = localSeconds(told);  // of a calendar without a zone, here UTC
    const std::int64_t missing = std::max<std::int64_t>(earliest - seconds, 0);
    return seconds + (missing + kRoundSeconds - 1) / kRoundSeconds * kRoundSeconds;
}

}  // namespace korvel
