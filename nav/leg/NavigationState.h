#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "geo/GeoPoint.h"
#include "nav/plan/RouteWords.h"

namespace korvel {

/// Stands for "no distance" in nautical miles.
inline constexpr double kNoDistanceNm = 30001.0;

/// What there is to know about the leg that is flown. Angles are degrees, distances nautical miles,
/// altitudes feet.
struct NavigationState {
    std::string activeKey;   ///< RecordKey of the active waypoint; empty when there is none
    std::string activeName;  ///< its name
    GeoPoint activeWaypoint;
    GeoPoint legStart;               ///< not valid when there is no leg
    double desiredTrack = kNoAngle;  ///< true course of the leg
    double obsCourse = kNoAngle;     ///< magnetic course set by the pilot with direct-to

    double bearingMag = kNoAngle;  ///< from the aircraft to the waypoint
    double distanceNm = kNoDistanceNm;
    /// Positive when the aircraft is left of the course, whichever way the leg was set up.
    double crossTrackNm = kNoDistanceNm;
    double offCourseDeg = kNoAngle;

    std::int32_t pathTargetAltFt = kNoAltitudeFt;  ///< at the end of the descent path
    std::int32_t pathAltFt = kNoAltitudeFt;        ///< on the path at the active waypoint
    double pathAngle = 0.0;                        ///< radians, negative downwards
    GeoPoint pathEnd;
    double pathDistanceNm = kNoDistanceNm;  ///< from the aircraft to the path's end
};

/// A new waypoint, or a new altitude at it.
struct WaypointAnnouncement {
    std::uint64_t number = 0;  ///< grows by one with each; 0 before the first
    std::string name;
    std::int32_t altitudeFt = kNoAltitudeFt;
};

}  // namespace korvel
