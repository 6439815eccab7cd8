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
constexpr double kSecondsPerMinute = 60;
constexpr double kMinutesPerHour = 60;
/// It has descended so much before the place where it shall be low.
constexpr double kLowBeforeNm = 1;

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
    motionKt_ = speedKt;
    altitudeFt_ = altitudeFt;
    wantedFt_.reset();
    trackMag_ = kNoAngle;
    formerTrackMag_ = kNoAngle;
    lastStepMs_ = 0;
    steerFromMs_ = nowMs + kSteeringDelayMs;
    running_ = true;
}

Aircraft Simulator::aircraft() const {
    Aircraft aircraft{.position = position_, .trackMag = trackMag_, .altitudeFt = altitudeFt()};
    if (speedKt_ != kNoSpeed)
        aircraft.groundSpeedKt = groundSpeedKt();
    return aircraft;
}

double Simulator::groundSpeedKt() const {
    return speedKt_ == kNoSpeed || wind_.speedKt == 0 ? speedKt_ : motionKt_;
}

Simulator::Motion Simulator::motion(const Variation& variation) const {
    const double course = variation.MagneticToTrue(headingMag_) * kDegToRad;
    if (wind_.speedKt == 0)
        return {.speedKt = speedKt_, .course = course};
    const double from = wind_.fromTrueDeg * kDegToRad;
    const double north = speedKt_ * std::cos(course) - wind_.speedKt * std::cos(from);
    const double east = speedKt_ * std::sin(course) - wind_.speedKt * std::sin(from);
    return {.speedKt = std::hypot(north, east), .course = std::atan2(east, north)};
}

void Simulator::wantAltitude(std::optional<std::int32_t> altitudeFt, double distanceNm) {
    wantedFt_.reset();
    if (!followsPlan_ || !altitudeFt || speedKt_ == kNoSpeed)
        return;
    const double descentHours = (altitudeFt_ - *altitudeFt) / kDescentFpm / kMinutesPerHour;
    if (descentHours <= 0 || distanceNm <= descentHours * groundSpeedKt() + kLowBeforeNm)
        wantedFt_ = altitudeFt;
}

void Simulator::climb(double seconds) {
    if (!wantedFt_)
        return;
    const double minutes = seconds / kSecondsPerMinute;
    altitudeFt_ = std::clamp<double>(*wantedFt_, altitudeFt_ - kDescentFpm * minutes,
                                     altitudeFt_ + kClimbFpm * minutes);
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
        const double seconds = static_cast<double>(nowMs - lastStepMs_) * 0.001;
        const Motion over = motion(variation);
        motionKt_ = over.speedKt;
        previous_ = position_;
        PointAtRadialDistance(previous_.lat, previous_.lon,
                              seconds * over.speedKt * kKnotsToRadiansPerSecond, over.course,
                              position_.lat, position_.lon);
        climb(seconds);
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
    if (speedKt_ == kNoSpeed || groundSpeedKt() < kSlowestTrackKt)
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
