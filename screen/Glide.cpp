#include "screen/Glide.h"

#include <algorithm>
#include <cmath>

namespace korvel {
namespace {

/// What the finger did before that does not count.
constexpr std::int64_t kSpeedOfMs = 100;
/// Who rests so long before leaving has stopped.
constexpr std::int64_t kRestMs = 60;
/// In so many milliseconds the speed falls to a third.
constexpr double kFadeMs = 325;
constexpr double kSlowestThrow = 0.25;  // pixels in a millisecond
constexpr double kSlowest = 0.02;
constexpr double kFastest = 4;

}  // namespace

void Glide::note(Point at, std::int64_t nowMs) {
    samples_.push_back({at, nowMs});
    while (samples_.front().ms < nowMs - kSpeedOfMs)
        samples_.pop_front();
}

void Glide::release(std::int64_t nowMs) {
    if (samples_.size() < 2 || nowMs - samples_.back().ms > kRestMs)
        return stop();
    const Sample& first = samples_.front();
    const Sample& last = samples_.back();
    const auto ms = static_cast<double>(last.ms - first.ms);
    speed_ = ms > 0 ? Point{(last.at.x - first.at.x) / ms, (last.at.y - first.at.y) / ms} : Point{};
    const double speed = std::hypot(speed_.x, speed_.y);
    if (speed < kSlowestThrow)
        return stop();
    const double share = std::min(1.0, kFastest / speed);
    speed_ = {speed_.x * share, speed_.y * share};
    samples_.clear();
    lastMs_ = nowMs;
}

void Glide::stop() {
    samples_.clear();
    lastMs_.reset();
}

Point Glide::step(std::int64_t nowMs) {
    if (!lastMs_)
        return {};
    const auto ms = static_cast<double>(nowMs - *lastMs_);
    const double left = std::exp(-ms / kFadeMs);
    const double way = kFadeMs * (1 - left);
    const Point moved{speed_.x * way, speed_.y * way};
    speed_ = {speed_.x * left, speed_.y * left};
    lastMs_ = nowMs;
    if (std::hypot(speed_.x, speed_.y) < kSlowest)
        stop();
    return moved;
}

}  // namespace korvel
