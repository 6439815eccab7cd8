#include "nav/traffic/TrafficConflict.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kSecondsPerHour = 3600;
constexpr double kSecondsPerMinute = 60;
constexpr double kNearNm = 6;
constexpr double kNearFt = 1200;

struct Zone {
    TrafficLevel level;
    double seconds;
    double nm;
    double ft;
    bool needsHeight;
};
/// The most urgent first.
constexpr std::array kZones{Zone{TrafficLevel::Alert, 25, 0.5, 600, true},
                            Zone{TrafficLevel::Caution, 45, 1, 850, false}};

/// East and north, in nautical miles or knots.
struct Plane {
    double x = 0;
    double y = 0;

    friend double dot(const Plane& a, const Plane& b) { return a.x * b.x + a.y * b.y; }
};

Plane polar(double length, double angleDeg) {
    return {length * std::sin(angleDeg * kDegToRad), length * std::cos(angleDeg * kDegToRad)};
}

Plane velocityOf(const MovingAircraft& aircraft) {
    if (!aircraft.trackTrueDeg || !aircraft.groundSpeedKt)
        return {};
    return polar(*aircraft.groundSpeedKt, *aircraft.trackTrueDeg);
}

/// The other one as seen from the own aircraft.
class Encounter {
 public:
    Encounter(const MovingAircraft& own, const MovingAircraft& other)
        : at_(polar(DistanceNm(own.position, other.position),
                    TrueCourseDeg(own.position, other.position))) {
        const Plane ownVelocity = velocityOf(own);
        const Plane velocity = velocityOf(other);
        velocity_ = {velocity.x - ownVelocity.x, velocity.y - ownVelocity.y};
        if (own.heightFt && other.heightFt)
            aboveFt_ = *other.heightFt - *own.heightFt;
        climbFpm_ = other.verticalSpeedFpm.value_or(0) - own.verticalSpeedFpm.value_or(0);
    }

    /// From now to so many seconds on, the closest in the plane.
    [[nodiscard]] double closestNm(double withinS) const {
        const double speed2 = dot(velocity_, velocity_);
        const double hours =
            speed2 > 0 ? std::clamp(-dot(at_, velocity_) / speed2, 0.0, withinS / kSecondsPerHour)
                       : 0;
        return std::hypot(at_.x + velocity_.x * hours, at_.y + velocity_.y * hours);
    }
    /// The same in height, on a way that is a straight line.
    [[nodiscard]] double closestFt(double withinS) const {
        const double now = *aboveFt_;
        const double then = now + climbFpm_ * withinS / kSecondsPerMinute;
        return now * then <= 0 ? 0 : std::min(std::abs(now), std::abs(then));
    }
    [[nodiscard]] bool heightIsKnown() const { return aboveFt_.has_value(); }

    [[nodiscard]] bool comesWithin(const Zone& zone) const {
        if (closestNm(zone.seconds) > zone.nm)
            return false;
        return heightIsKnown() ? closestFt(zone.seconds) <= zone.ft : !zone.needsHeight;
    }

 private:
    Plane at_;
    Plane velocity_;
    std::optional<double> aboveFt_;
    double climbFpm_ = 0;
};

}  // namespace

TrafficLevel trafficLevel(const MovingAircraft& own, const MovingAircraft& other) {
    const Encounter encounter(own, other);
    for (const Zone& zone : kZones)
        if (encounter.comesWithin(zone))
            return zone.level;
    const bool isNear = encounter.closestNm(0) <= kNearNm &&
                        (!encounter.heightIsKnown() || encounter.closestFt(0) <= kNearFt);
    return isNear ? TrafficLevel::Near : TrafficLevel::Far;
}

GeoPoint movedOn(const MovingAircraft& aircraft, double seconds) {
    if (!aircraft.trackTrueDeg || !aircraft.groundSpeedKt)
        return aircraft.position;
    const double nm = *aircraft.groundSpeedKt * seconds / kSecondsPerHour;
    GeoPoint moved;
    PointAtRadialDistance(aircraft.position.lat, aircraft.position.lon, nm / kNmPerRadian,
                          *aircraft.trackTrueDeg * kDegToRad, moved.lat, moved.lon);
    return moved;
}

}  // namespace korvel
