#pragma once

#include <cstdint>
#include <optional>

#include "geo/GeoPoint.h"
#include "geo/PositionSource.h"
#include "geo/Variation.h"
#include "nav/aircraft/Wind.h"

namespace korvel {

/// Stands for "no speed" in the speed of the simulated aircraft.
inline constexpr double kNoSpeed = 1000.0;

/// An aircraft that flies by dead reckoning in place of the receiver and, once it has flown for
/// five seconds, turns towards the active waypoint. Its ticks are those of the navigation update;
/// user-interface thread only.
class Simulator final : public PositionSource {
 public:
    static constexpr std::int32_t kNoHeading = 1000;  ///< the aircraft does not move
    static constexpr int kClimbFpm = 700;
    static constexpr int kDescentFpm = 500;

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
    /// What carries the aircraft besides its own speed, which then is that through the air.
    void setWind(const Wind& wind) { wind_ = wind; }
    [[nodiscard]] const Wind& wind() const { return wind_; }
    /// Off from the beginning: it keeps its altitude.
    void setFollowsPlan(bool on) { followsPlan_ = on; }
    [[nodiscard]] bool followsPlan() const { return followsPlan_; }
    /// What the plan wants so many nautical miles ahead, if anything. Who follows it climbs there
    /// at once and descends as late as it can.
    void wantAltitude(std::optional<std::int32_t> altitudeFt, double distanceNm);

    [[nodiscard]] GeoPoint position() const { return position_; }
    [[nodiscard]] std::int32_t headingMag() const { return headingMag_; }
    /// Through the air, without wind also over the ground. kNoSpeed when there is none.
    [[nodiscard]] double speedKt() const { return speedKt_; }
    /// Of the last step; kNoSpeed as speedKt().
    [[nodiscard]] double groundSpeedKt() const;
    /// Whole degrees, 1 to 360, or kNoAngle.
    [[nodiscard]] double trackMag() const { return trackMag_; }
    [[nodiscard]] std::int32_t altitudeFt() const { return static_cast<std::int32_t>(altitudeFt_); }

    void setHeading(std::int32_t headingMag);
    void setSpeed(double speedKt) { speedKt_ = speedKt; }
    void setAltitude(std::int32_t altitudeFt) { altitudeFt_ = altitudeFt; }

 private:
    /// Over the ground: knots and radians true.
    struct Motion {
        double speedKt;
        double course;
    };

    [[nodiscard]] Motion motion(const Variation& variation) const;
    void climb(double seconds);

    bool running_ = false;
    bool steering_ = true;
    bool followsPlan_ = false;
    std::optional<std::int64_t> steerFromMs_;
    GeoPoint position_;
    GeoPoint previous_;  ///< before the last step
    std::int32_t headingMag_ = kNoHeading;
    double speedKt_ = kNoSpeed;
    Wind wind_;
    double motionKt_ = 0;  ///< over the ground in the last step; counts with a wind alone
    double trackMag_ = kNoAngle;
    double formerTrackMag_ = kNoAngle;  ///< before its last change
    double altitudeFt_ = 0;
    std::optional<std::int32_t> wantedFt_;  ///< it climbs or descends there
    std::int64_t lastStepMs_ = 0;           ///< 0 before the first step
};

}  // namespace korvel
