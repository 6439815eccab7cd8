#include "platform/VirtualClock.h"

#include <algorithm>
#include <chrono>

namespace korvel {
namespace {

namespace chrono = std::chrono;
using chrono::milliseconds;

std::int64_t localMilliseconds(const LocalTime& local) {
    const auto newYear = chrono::year(local.year) / chrono::January / 1;
    const chrono::sys_days day =
        chrono::sys_days(newYear + chrono::months(local.month - 1)) + chrono::days(local.day - 1);
    const auto time = day + chrono::hours(local.hour) + chrono::minutes(local.minute) +
                      chrono::seconds(local.second);
    return chrono::duration_cast<milliseconds>(time.time_since_epoch()).count();
}

LocalTime calendar(std::int64_t localMs) {
    const chrono::sys_time<milliseconds> time{milliseconds(localMs)};
    const auto midnight = chrono::floor<chrono::days>(time);
    const chrono::year_month_day date(midnight);
    const chrono::hh_mm_ss clock(chrono::floor<chrono::seconds>(time - midnight));
    return {.year = int{date.year()},
            .month = static_cast<int>(unsigned{date.month()}),
            .day = static_cast<int>(unsigned{date.day()}),
            .hour = static_cast<int>(clock.hours().count()),
            .minute = static_cast<int>(clock.minutes().count()),
            .second = static_cast<int>(clock.seconds().count())};
}

std::int64_t floorToSeconds(std::int64_t ms) {
    return chrono::floor<chrono::seconds>(milliseconds(ms)).count();
}

}  // namespace

VirtualClock::VirtualClock(const LocalTime& localStart, std::int64_t utcOffsetSeconds)
    : state_(State{.localMs = localMilliseconds(localStart)}),
      utcOffsetSeconds_(utcOffsetSeconds) {}

VirtualClock::VirtualClock(const LocalTime& localStart, const Clock& zone)
    : VirtualClock(localStart,
                   floorToSeconds(localMilliseconds(localStart)) - zone.unixSecondsAt(localStart)) {
    zone_ = &zone;
}

std::int64_t VirtualClock::tickMs() const { return state_.lock()->tickMs; }

std::int64_t VirtualClock::unixSeconds() const {
    return floorToSeconds(state_.lock()->localMs) - utcOffsetSeconds_;
}

LocalTime VirtualClock::localNow() const { return calendar(state_.lock()->localMs); }

std::int64_t VirtualClock::unixSecondsAt(const LocalTime& local) const {
    return zone_ != nullptr ? zone_->unixSecondsAt(local)
                            : floorToSeconds(localMilliseconds(local)) - utcOffsetSeconds_;
}

void VirtualClock::advanceMs(std::int64_t ms) {
    const std::int64_t step = std::max<std::int64_t>(ms, 0);
    const auto state = state_.lock();
    state->tickMs += step;
    state->localMs += step;
}

void VirtualClock::setTickMs(std::int64_t tick) {
    state_.lock()->tickMs = std::max<std::int64_t>(tick, 1);
}

void VirtualClock::setLocalNow(const LocalTime& local) {
    state_.lock()->localMs = localMilliseconds(local);
}

}  // namespace korvel
