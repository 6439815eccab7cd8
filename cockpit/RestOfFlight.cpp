#include "cockpit/RestOfFlight.h"

#include "cockpit/CockpitData.h"

namespace korvel {

std::optional<double> planRestNm(const CockpitData& data) {
    if (data.directLeg || !data.plan || !data.plan->active || !data.distanceNm)
        return std::nullopt;
    double rest = *data.distanceNm;
    for (std::size_t i = *data.plan->active + 1; i < data.plan->rows.size(); ++i) {
        const std::optional<double>& leg = data.plan->rows[i].legNm;
        if (!leg)
            return std::nullopt;
        rest += *leg;
    }
    return rest;
}

std::optional<RestOfFlight> restOfFlight(const CockpitData& data) {
    const std::optional<double> nm = data.directLeg ? data.distanceNm : planRestNm(data);
    const std::optional<GeoPoint> end =
        data.directLeg || !nm ? data.activeWaypoint : data.plan->rows.back().position;
    if (!nm || !end || !data.groundSpeedKt || *data.groundSpeedKt < kSlowestToTellTimeKt)
        return std::nullopt;
    return RestOfFlight{.end = *end, .seconds = *nm / *data.groundSpeedKt * 3600};
}

}  // namespace korvel
