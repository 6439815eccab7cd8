#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "navdb/records/RecordKey.h"

namespace korvel {

// What other programs' files hold, before it is matched with the databases. Texts are UTF-8.

/// A point of a route.
struct ForeignPoint {
    std::string ident;  ///< by which it may be looked up; empty for none
    std::string name;   ///< what the pilot reads; empty where the file has only `ident`
    /// What the file says it is: kAllKinds where it does not say, 0 for a waypoint of the user's
    /// own, which is never looked up.
    KindMask kinds = kAllKinds;
    /// The file says that `ident` is a published place, whatever it looks like.
    bool isPublished = false;
    GeoPoint position;
    std::optional<double> altitudeFt{};  ///< planned, where the format has it for a waypoint
};

struct ForeignRoute {
    std::string name;
    std::vector<ForeignPoint> points;
};

/// The error is the message for the pilot, and then nothing else counts.
struct ForeignPlan {
    std::string error{};
    std::vector<ForeignRoute> routes{};
};

struct ForeignTrackPoint {
    GeoPoint position;
    std::optional<std::int64_t> unixS{};  ///< UTC
    double altitudeFt = 0.0;
    double groundSpeedKt = 0.0;
    double trackDeg = 0.0;
};

/// An empty slot is a break between two stretches.
struct ForeignTrack {
    std::string error{};
    std::vector<std::optional<ForeignTrackPoint>> points{};
};

struct ForeignWaypoint {
    std::string ident;
    std::string name;
    GeoPoint position;
    std::optional<double> elevationFt{};
};

struct ForeignWaypoints {
    std::string error{};
    std::vector<ForeignWaypoint> waypoints{};
};

}  // namespace korvel
