#include "platform/VirtualClock.h"

#include <algorithm>
#include <chrono>

namespace korvel {
namespace {

constexpr std::int64_t kMsPerSecond = 1000;

std::int64_t localMilliseconds(const LocalTime& local) {
    return localSeconds(local) * kMsPerSecond;
}

std::int64_t floorToSeconds(std::int64_t ms) {
    return std::chrono::floor<std::chrono::seconds>(std::chrono::milliseconds(ms)).count();
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

LocalTime VirtualClock::localNow() const {
    return localTimeAt(floorToSeconds(state_.lock()->localMs));
}

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
