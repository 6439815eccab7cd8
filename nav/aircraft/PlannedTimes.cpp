#include "nav/aircraft/PlannedTimes.h"

#include <algorithm>
#include <cmath>

#include "geo/Units.h"

namespace korvel {
namespace {

constexpr double kMinutesPerHour = 60;

/// Takes `hours` off what is flown of a leg at that speed; the hours that it took.
double flyPart(double& restNm, double& hours, double groundKt) {
    const double flown = std::min(restNm, hours * groundKt);
    restNm -= flown;
    hours -= flown / groundKt;
    return flown / groundKt;
}

}  // namespace

std::vector<std::optional<double>> plannedHours(std::span<const PlannedLeg> legs,
                                                const AircraftProfile& aircraft,
                                                const PlannedHeights& heights,
                                                const std::optional<Wind>& wind) {
    std::vector<double> rest;
    for (const PlannedLeg& leg : legs)
        rest.push_back(leg.nm);
    std::vector<std::optional<double>> hours(legs.size(), 0.0);
    const auto add = [&](std::size_t i, double airspeedKt, double& within) {
        const auto ground = groundSpeedKt(legs[i].courseTrueDeg, airspeedKt, wind);
        if (!ground || !hours[i])
            hours[i].reset();
        else
            *hours[i] += flyPart(rest[i], within, *ground);
    };
    double climb = std::max(0.0, heights.climbFt) / aircraft.climbFpm / kMinutesPerHour;
    for (std::size_t i = 0; i < legs.size() && climb > 0; ++i)
        add(i, aircraft.climbKt, climb);
    double descent = std::max(0.0, heights.descentFt) / aircraft.descentFpm / kMinutesPerHour;
    for (std::size_t i = legs.size(); i-- > 0 && descent > 0;)
        add(i, aircraft.descentKt, descent);
    for (std::size_t i = 0; i < legs.size(); ++i) {
        double endless = HUGE_VAL;
        add(i, aircraft.cruiseKt, endless);
    }
    return hours;
}

std::optional<double> secondsToDescent(const AircraftProfile& aircraft, double downFt, double nm,
                                       double groundSpeedKt) {
    constexpr double kSlowestKt = 30;
    constexpr double kSecondsPerHour = 3600;
    constexpr double kSecondsPerMinute = 60;
    if (downFt <= 0 || groundSpeedKt < kSlowestKt)
        return std::nullopt;
    return nm / groundSpeedKt * kSecondsPerHour - downFt / aircraft.descentFpm * kSecondsPerMinute;
}

std::optional<double> glideArrivalFt(const AircraftProfile& aircraft, double aboveFieldFt,
                                     const PlannedLeg& way, const std::optional<Wind>& wind) {
    const auto ground = groundSpeedKt(way.courseTrueDeg, aircraft.glideKt, wind);
    if (!ground)
        return std::nullopt;
    const double throughAirNm = way.nm / *ground * aircraft.glideKt;
    return aboveFieldFt - throughAirNm * kFeetPerNm / aircraft.glideRatio;
}

}  // namespace korvel
