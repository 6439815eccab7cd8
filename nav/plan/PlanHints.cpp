#include "nav/plan/PlanHints.h"

#include <cmath>
#include <optional>
#include <string_view>

#include "config/texts/FlightTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kLongLegNm = 500;
constexpr double kSharpTurnDeg = 120;
constexpr double kHalfTurnDeg = 180;

/// The course on which the second place is reached; it differs from the one at the first.
double arrivalDeg(GeoPoint from, GeoPoint to) { return TrueCourseDeg(to, from) + kHalfTurnDeg; }

double turnDeg(double from, double to) { return std::abs(std::remainder(to - from, 360.0)); }

}  // namespace

std::vector<std::string> planHints(std::span<const PlanWaypoint> entries, DistanceUnit unit) {
    std::vector<std::string> hints;
    std::optional<double> arrival;
    for (std::size_t i = 1; i < entries.size(); ++i) {
        const PlanWaypoint& from = entries[i - 1];
        const PlanWaypoint& to = entries[i];
        if (SamePoint(from.position(), to.position()))
            continue;
        const double turn =
            arrival ? turnDeg(*arrival, TrueCourseDeg(from.position(), to.position())) : 0.0;
        if (turn > kSharpTurnDeg) {
            hints.push_back(
                formatText(kFlightTexts.sharpTurn, {RoundToInt(turn), from.record->ident.view()}));
        }
        const double legNm = DistanceNm(from.position(), to.position());
        if (legNm > kLongLegNm) {
            hints.push_back(formatText(kFlightTexts.longLeg,
                                       {from.record->ident.view(), to.record->ident.view(),
                                        std::string_view(distanceText(legNm, unit))}));
        }
        arrival = arrivalDeg(from.position(), to.position());
    }
    return hints;
}

}  // namespace korvel
