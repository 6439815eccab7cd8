#pragma once

#include <optional>
#include <string>
#include <vector>

#include "geo/GeoPoint.h"

namespace korvel {

struct CockpitData;

/// A place that a profile leads over.
struct ProfileStop {
    GeoPoint position;
    std::string ident{};              ///< what is written beside it; empty for the aircraft
    std::optional<int> altitudeFt{};  ///< to be flown there
    double nm = 0;                    ///< from where the profile begins

    friend bool operator==(const ProfileStop&, const ProfileStop&) = default;
};

/// Which way a profile leads.
struct ProfileRoute {
    std::vector<ProfileStop> stops;  ///< the first is where it begins; none where there is no way
    bool fromAircraft = false;       ///< that is where the aircraft is
    bool alongTrack = false;         ///< straight on, for want of a place to fly to

    [[nodiscard]] double lengthNm() const { return stops.empty() ? 0 : stops.back().nm; }

    friend bool operator==(const ProfileRoute&, const ProfileRoute&) = default;
};

/// From the aircraft to the runway that is approached, along the rest of the plan, to what is flown
/// to directly, or along the track, in this order; without a position along all of the plan.
ProfileRoute profileRoute(const CockpitData& data);

}  // namespace korvel
