#include "nav/approach/LandingRunway.h"

#include <cmath>
#include <cstddef>

#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {
namespace {

/// How far beside the threshold a glide path is still of use; farther out it is more.
constexpr double kGuidedBesideNm = 0.5;

std::optional<std::int32_t> elevationOf(const RunwayEnd& end, const AirportRecord& airport) {
    return end.elevationFt ? end.elevationFt : elevationOf(airport);
}

}  // namespace

bool hasBothEnds(const RunwayRecord& runway) {
    return runway.ends.size() == 2 && IsValid(runway.ends[0].position) &&
           IsValid(runway.ends[1].position) &&
           !SamePoint(runway.ends[0].position, runway.ends[1].position);
}

std::vector<LandingRunway> landingRunways(const AirportRecord& airport) {
    std::vector<LandingRunway> all;
    for (const RunwayRecord& runway : airport.runways) {
        if (!hasBothEnds(runway))
            continue;
        for (std::size_t end = 0; end < 2; ++end) {
            const RunwayEnd& near = runway.ends[end];
            const RunwayEnd& far = runway.ends[1 - end];
            all.push_back({.airportKey = airport.key,
                           .airport = std::string(airport.ident.view()),
                           .id = near.id,
                           .threshold = near.position,
                           .farEnd = far.position,
                           .courseTrueDeg = TrueCourseDeg(near.position, far.position),
                           .lengthFt = runway.lengthFt,
                           .thresholdFt = elevationOf(near, airport)});
        }
    }
    return all;
}

GeoPoint onCenterLine(const LandingRunway& runway, double nm) {
    GeoPoint point;
    PointAtRadialDistance(runway.threshold.lat, runway.threshold.lon, nm / kNmPerRadian,
                          runway.courseTrueDeg * kDegToRad + kPi, point.lat, point.lon);
    return point;
}

std::optional<int> glidePathFt(const LandingRunway& runway, double toGoNm) {
    if (!runway.thresholdFt)
        return std::nullopt;
    const double climb = std::tan(kGlidePathDeg * kDegToRad) * toGoNm * kFeetPerNm;
    return RoundToInt(*runway.thresholdFt + kThresholdHeightFt + climb);
}

ApproachFigures approachFigures(const LandingRunway& runway, GeoPoint position) {
    const GeoPoint threshold = runway.threshold;
    const double away =
        GreatCircleDistance(threshold.lat, threshold.lon, position.lat, position.lon);
    const double seen = TrueCourse(threshold.lat, threshold.lon, position.lat, position.lon);
    const double off = seen - (runway.courseTrueDeg * kDegToRad + kPi);
    ApproachFigures figures{.distanceNm = away * kNmPerRadian,
                            .bearingTrueDeg = TrueCourseDeg(position, threshold),
                            .glidePathFt = std::nullopt};
    figures.crossTrackNm = std::asin(std::sin(away) * std::sin(off)) * kNmPerRadian;
    figures.toGoNm = std::atan2(std::sin(away) * std::cos(off), std::cos(away)) * kNmPerRadian;
    const bool guided = figures.toGoNm >= 0 && figures.toGoNm <= kCenterLineNm &&
                        std::abs(figures.crossTrackNm) <= figures.toGoNm + kGuidedBesideNm;
    if (guided)
        figures.glidePathFt = glidePathFt(runway, figures.toGoNm);
    return figures;
}

}  // namespace korvel
