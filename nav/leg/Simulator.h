#pragma once

#include <cstdint>
#include <optional>

#include "geo/GeoPoint.h"
#include "geo/PositionSource.h"
#include "geo/Variation.h"

namespace korvel {

/// Stands for "no speed" in the speed of the simulated aircraft.
inline constexpr double kNoSpeed = 1000.0;

/// An aircraft that flies by dead reckoning in place of the receiver and, once it has flown for
/// five seconds, turns towards the active waypoint. Its ticks are those of the navigation update;
/// user-interface thread only.
class Simulator final : public PositionSource {
 public:
    static constexpr std::int32_t kNoHeading = 1000;  ///< the aircraft does not move

    /// headingMag: 0 to 360, or kNoHeading. From `nowMs` on steering waits its five seconds.
    void start(GeoPoint position, std::int32_t headingMag, double speedKt, std::int32_t altitudeFt,
               std::int64_t nowMs);
    void stop() { running_ = false; }
    [[nodiscard]] bool running() const { return running_; }
    [[nodiscard]] bool isActive() const override { return running_; }
    [[nodiscard]] Aircraft aircraft() const override;

    /// On from the beginning.
    void setSteering(bool on) { steering_ = on; }
    [[nodiscard]] bool steering() const { return steering_; }
    /// Steering begins now, without waiting.
    void steerAtOnce() { steerFromMs_ = 0; }

    /// Moves the aircraft on to `nowMs`.
    void step(std::int64_t nowMs, const Variation& variation);
    /// Derives the displayed track from the last two positions.
    void updateTrack(const Variation& variation);
    /// Turns by at most 5 degrees towards a bearing, kNoAngle when there is none.
    void steer(std::int64_t nowMs, double bearingMag);
    /// What a missing position leaves.
    void losePosition();

    [[nodiscard]] GeoPoint position() const { return position_; }
    [[nodiscard]] std::int32_t headingMag() const { return headingMag_; }
    /// kNoSpeed when there is none.
    [[nodiscard]] double speedKt() const { return speedKt_; }
    /// Whole degrees, 1 to 360, or kNoAngle.
    [[nodiscard]] double trackMag() const { return trackMag_; }
    [[nodiscard]] std::int32_t altitudeFt() const { return altitudeFt_; }

    void setHeading(std::int32_t headingMag);
    void setSpeed(double speedKt) { speedKt_ = speedKt; }
    void setAltitude(std::int32_t altitudeFt) { altitudeFt_ = altitudeFt; }

 private:
    bool running_ = false;
    bool steering_ = true;
    std::optional<std::int64_t> steerFromMs_;
    GeoPoint position_;
    GeoPoint previous_;  ///< before the last step
    std::int32_t headingMag_ = kNoHeading;
    double speedKt_ = kNoSpeed;
    double trackMag_ = kNoAngle;
    double formerTrackMag_ = kNoAngle;  ///< before its last change
    std::int32_t altitudeFt_ = 0;
    std::int64_t lastStepMs_ = 0;  ///< 0 before the first step
};

}  // namespace korvel
