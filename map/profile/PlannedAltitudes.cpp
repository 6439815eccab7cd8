#include "map/profile/PlannedAltitudes.h"

#include <algorithm>
#include <cmath>

#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "nav/approach/LandingRunway.h"

namespace korvel {
namespace {

/// A descent that is flown level for less than this is none.
constexpr double kLeastDescentFt = 100;

}  // namespace

PlannedAltitudes plannedAltitudes(const ProfileRoute& route, std::optional<double> startFt) {
    const double gentleFtPerNm = std::tan(kGlidePathDeg * kDegToRad) * kFeetPerNm;
    PlannedAltitudes planned;
    bool anyPlanned = false;
    if (startFt)
        planned.line.push_back({0, *startFt});
    for (const ProfileStop& stop : route.stops) {
        if (!stop.altitudeFt)
            continue;
        anyPlanned = true;
        const ProfilePoint target{stop.nm, static_cast<double>(*stop.altitudeFt)};
        if (planned.line.empty())
            planned.line.push_back({0, target.ft});
        const ProfilePoint last = planned.line.back();
        if (const double down = last.ft - target.ft; down >= kLeastDescentFt) {
            const ProfilePoint begin{std::max(target.nm - down / gentleFtPerNm, last.nm), last.ft};
            planned.descents.push_back(begin);
            if (begin.nm > last.nm)
                planned.line.push_back(begin);
        }
        planned.line.push_back(target);
    }
    if (!anyPlanned)
        return {};
    if (planned.line.back().nm < route.lengthNm())
        planned.line.push_back({route.lengthNm(), planned.line.back().ft});
    return planned;
}

}  // namespace korvel
