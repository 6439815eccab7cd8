#include "nav/leg/Simulator.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr std::int64_t kSteeringDelayMs = 5000;
constexpr int kTurnPerTickDeg = 5;
constexpr double kSlowestTrackKt = 3.0;

/// Whole degrees, 1 to 360.
double wholeDegrees(double angle) {
    const int whole = RoundToInt(angle);
    return whole == 0 ? 360.0 : whole;
}

}  // namespace

void Simulator::start(GeoPoint position, std::int32_t headingMag, double speedKt,
                      std::int32_t altitudeFt, std::int64_t nowMs) {
    position_ = position;
    previous_ = {};
    setHeading(headingMag);
    speedKt_ = speedKt;
    altitudeFt_ = altitudeFt;
    trackMag_ = kNoAngle;
    formerTrackMag_ = kNoAngle;
    lastStepMs_ = 0;
    steerFromMs_ = nowMs + kSteeringDelayMs;
    running_ = true;
}

Aircraft Simulator::aircraft() const {
    Aircraft aircraft{.position = position_, .trackMag = trackMag_, .altitudeFt = altitudeFt_};
    if (speedKt_ != kNoSpeed)
        aircraft.groundSpeedKt = speedKt_;
    return aircraft;
}

void Simulator::setHeading(std::int32_t headingMag) {
    headingMag_ = headingMag == kNoHeading
                      ? kNoHeading
                      : static_cast<std::int32_t>(PositiveMod(headingMag, 360.0));
}

void Simulator::step(std::int64_t nowMs, const Variation& variation) {
    if (!running_ || headingMag_ == kNoHeading)
        return;
    if (lastStepMs_ != 0 && IsValid(position_) && speedKt_ != kNoSpeed) {
        const double angle =
            static_cast<double>(nowMs - lastStepMs_) * 0.001 * speedKt_ * kKnotsToRadiansPerSecond;
        const double course = variation.MagneticToTrue(headingMag_) * kDegToRad;
        previous_ = position_;
        PointAtRadialDistance(previous_.lat, previous_.lon, angle, course, position_.lat,
                              position_.lon);
    }
    lastStepMs_ = nowMs;
}

void Simulator::updateTrack(const Variation& variation) {
    if (!running_ || !IsValid(previous_) || !IsValid(position_))
        return;
    if (SamePoint(previous_, position_)) {
        if (trackMag_ == kNoAngle)
            trackMag_ = wholeDegrees(variation.TrueToMagnetic(360.0));
        return;
    }
    if (speedKt_ == kNoSpeed || speedKt_ < kSlowestTrackKt)
        return;
    const double now = wholeDegrees(variation.TrueToMagnetic(TrueCourseDeg(previous_, position_)));
    // A track between two whole degrees shall not flicker.
    const bool flickers = std::abs(now - trackMag_) == 1.0 && now == formerTrackMag_;
    if (now != trackMag_ && !flickers)
        formerTrackMag_ = std::exchange(trackMag_, now);
}

void Simulator::steer(std::int64_t nowMs, double bearingMag) {
    const bool due = steerFromMs_ && nowMs >= *steerFromMs_;
    if (!running_ || !steering_ || !due || bearingMag == kNoAngle || trackMag_ == kNoAngle ||
        headingMag_ == kNoHeading)
        return;
    const int off = HeadingDifferenceDeg(bearingMag, trackMag_);
    setHeading(headingMag_ - std::clamp(off, -kTurnPerTickDeg, kTurnPerTickDeg));
}

void Simulator::losePosition() {
    trackMag_ = kNoAngle;
    speedKt_ = kNoSpeed;
}

}  // namespace korvel
