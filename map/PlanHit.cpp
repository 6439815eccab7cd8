#include "map/PlanHit.h"

#include <cmath>
#include <span>

#include "cockpit/CockpitData.h"
#include "map/GreatCircleLine.h"
#include "map/PlaceHit.h"
#include "paint/Clip.h"

namespace korvel {
namespace {

/// From a finger to a leg as the map shows it; nothing where the view does not show it.
std::optional<double> distanceToLeg(const MapView& view, GeoPoint from, GeoPoint to, Point finger) {
    std::optional<double> nearest;
    traceGreatCircle(view.projection, from, to, view.area, [&](std::span<const Point> piece) {
        for (std::size_t i = 1; i < piece.size(); ++i) {
            const double away = distanceToLine(finger, piece[i - 1], piece[i]);
            if (!nearest || away < *nearest)
                nearest = away;
        }
    });
    return nearest;
}

/// The row whose `distance` is least, of those within the radius.
template <class Distance>
std::optional<std::size_t> nearestRow(const CockpitData& data, double radiusPx, Distance distance) {
    std::optional<std::size_t> nearest;
    double least = radiusPx;
    const std::size_t rows = data.plan ? data.plan->rows.size() : 0;
    for (std::size_t row = 0; row < rows; ++row) {
        const std::optional<double> away = distance(row);
        if (away && *away <= least) {
            least = *away;
            nearest = row;
        }
    }
    return nearest;
}

}  // namespace

std::optional<std::size_t> planPlaceAt(const CockpitData& data, const MapView& view, Point finger,
                                       double radiusPx) {
    return nearestRow(
        data, radiusPx,
        [&](std::size_t row) -> std::optional<double> {
            const Point at = view.projection.project(data.plan->rows[row].position);
            return std::hypot(at.x - finger.x, at.y - finger.y);
        });
}

std::optional<std::size_t> planLegAt(const CockpitData& data, const MapView& view, Point finger,
                                     double radiusPx) {
    return nearestRow(
        data, radiusPx,
        [&](std::size_t row) -> std::optional<double> {
            if (row == 0 || isBehind(planPart(*data.plan, row)))
                return std::nullopt;
            return distanceToLeg(view, data.plan->rows[row - 1].position,
                                 data.plan->rows[row].position, finger);
        });
}

}  // namespace korvel
