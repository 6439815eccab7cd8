#include "nav/leg/VerticalSpeed.h"

#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr std::int64_t kWindowMs = 6000;
constexpr std::int64_t kShortestMs = 3000;
constexpr double kMsPerMinute = 60000;
constexpr int kStepFpm = 10;
constexpr double kFastestFpm = 100000;

}  // namespace

void VerticalSpeed::add(std::int64_t tickMs, std::optional<std::int32_t> altitudeFt) {
    if (!altitudeFt) {
        samples_.clear();
        return;
    }
    samples_.push_back({tickMs, *altitudeFt});
    while (tickMs - samples_.front().tickMs > kWindowMs)
        samples_.pop_front();
}

std::optional<int> VerticalSpeed::feetPerMinute() const {
    if (samples_.empty() || samples_.back().tickMs - samples_.front().tickMs < kShortestMs)
        return std::nullopt;
    // The slope of the straight line that fits best.
    double meanMs = 0;
    double meanFt = 0;
    for (const Sample& sample : samples_) {
        meanMs += static_cast<double>(sample.tickMs - samples_.front().tickMs);
        meanFt += sample.altitudeFt;
    }
    const auto count = static_cast<double>(samples_.size());
    meanMs /= count;
    meanFt /= count;
    double both = 0;
    double square = 0;
    for (const Sample& sample : samples_) {
        const double ms = static_cast<double>(sample.tickMs - samples_.front().tickMs) - meanMs;
        both += ms * (sample.altitudeFt - meanFt);
        square += ms * ms;
    }
    const double rateFpm = both / square * kMsPerMinute;
    // An altitude that jumps is no climb.
    return std::abs(rateFpm) <= kFastestFpm
               ? std::optional(RoundToInt(rateFpm / kStepFpm) * kStepFpm)
               : std::nullopt;
}

}  // namespace korvel
