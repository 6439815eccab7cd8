#include "cockpit/DerivedAttitude.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {
namespace {

constexpr std::int64_t kWindowMs = 3000;
constexpr std::int64_t kLongestGapMs = 31000;  // a tick at sixty times the speed, and some more
constexpr std::int64_t kLeastSpanMs = 1900;
/// A track that is still the same after this long has been sent again; before, it is only old.
constexpr std::int64_t kRepeatMs = 1000;
constexpr double kMetresPerSecondPerKt = 1852.0 / 3600;
constexpr double kGravity = 9.80665;  // metres per second squared
constexpr double kFpmPerKt = kFeetPerNm / 60;
constexpr double kPitchShare = 0.4;  // of the newest value

}  // namespace

void DerivedAttitude::add(double trackDeg, std::int64_t nowMs) {
    if (!samples_.empty()) {
        const Sample& last = samples_.back();
        trackDeg = last.trackDeg + std::remainder(trackDeg - last.trackDeg, 360.0);
        if (nowMs <= last.atMs || (trackDeg == last.trackDeg && nowMs - last.atMs < kRepeatMs))
            return;
    }
    samples_.push_back({nowMs, trackDeg});
    // When simulated time passes faster, two ticks are farther apart than the window is long.
    const auto isOld = [nowMs](const Sample& sample, std::int64_t afterMs) {
        return nowMs - sample.atMs > afterMs;
    };
    while (isOld(samples_.front(), kLongestGapMs) ||
           (isOld(samples_.front(), kWindowMs) && nowMs - samples_[1].atMs >= kLeastSpanMs))
        samples_.pop_front();
}

// The slope of the straight line that fits the samples best, in degrees per second.
std::optional<double> DerivedAttitude::turnRate() const {
    if (samples_.size() < 2 || samples_.back().atMs - samples_.front().atMs < kLeastSpanMs)
        return std::nullopt;
    const Sample& first = samples_.front();
    double sumT = 0;
    double sumA = 0;
    double sumTT = 0;
    double sumTA = 0;
    for (const Sample& sample : samples_) {
        const double t = static_cast<double>(sample.atMs - first.atMs) / 1000;
        const double a = sample.trackDeg - first.trackDeg;
        sumT += t;
        sumA += a;
        sumTT += t * t;
        sumTA += t * a;
    }
    const auto n = static_cast<double>(samples_.size());
    return (n * sumTA - sumT * sumA) / (n * sumTT - sumT * sumT);
}

void DerivedAttitude::forget() {
    samples_.clear();
    pitchDeg_.reset();
}

void DerivedAttitude::update(CockpitData& data, std::int64_t nowMs) {
    if (std::exchange(simulated_, data.simulated) != data.simulated)
        forget();
    const bool flying = data.groundSpeedKt && *data.groundSpeedKt >= kSlowestKt;
    if (!flying || !data.trackMagDeg)
        return forget();
    add(*data.trackMagDeg, nowMs);
    data.turnRateDegPerSec = turnRate();
    if (data.turnRateDegPerSec) {
        const double pull = *data.turnRateDegPerSec * kDegToRad * *data.groundSpeedKt *
                            kMetresPerSecondPerKt / kGravity;
        data.bankDeg = std::clamp(std::atan(pull) * kRadToDeg, -kMostBankDeg, kMostBankDeg);
    }
    if (!data.verticalSpeedFpm) {
        pitchDeg_.reset();
        return;
    }
    const double climb = std::atan2(*data.verticalSpeedFpm, *data.groundSpeedKt * kFpmPerKt);
    const double pitch = std::clamp(climb * kRadToDeg, -kMostPitchDeg, kMostPitchDeg);
    pitchDeg_ = pitchDeg_ ? *pitchDeg_ + kPitchShare * (pitch - *pitchDeg_) : pitch;
    data.pitchDeg = pitchDeg_;
}

}  // namespace korvel
