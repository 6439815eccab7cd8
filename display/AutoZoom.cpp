#include "display/AutoZoom.h"

#include <algorithm>
#include <utility>

#include "display/MapViewport.h"

namespace korvel {
namespace {

/// From the waypoint to the map's edge.
constexpr double kMarginPx = 24;
constexpr double kLeastReach = 0.1;  // of windows too small for it
/// A closer range must do with so much to spare.
constexpr double kSpare = 1.25;
constexpr int kCloserTicks = 6;

int stepFor(double rangeNm) {
    const auto* step = std::ranges::lower_bound(kRangeStepsNm, rangeNm);
    return step == kRangeStepsNm.end() ? kRangeStepsNm.back() : *step;
}

}  // namespace

double reachOf(const MapViewport& viewport) {
    const double least = std::min({viewport.aircraftY(), viewport.height() - viewport.aircraftY(),
                                   viewport.aircraftX()}) -
                         kMarginPx;
    return std::max(kLeastReach, least / std::max(1, viewport.aircraftY()));
}

std::optional<int> AutoZoom::tick(std::optional<double> distanceNm, const MapViewport& viewport,
                                  bool approachMode) {
    const int before = std::exchange(closerTicks_, 0);
    if (!distanceNm)
        return std::nullopt;
    const double needed = *distanceNm / reachOf(viewport);
    const double closest = approachMode ? kClosestInApproachNm : kClosestNm;
    const int current = viewport.currentRangeNm();
    if (const int farther = stepFor(std::max(needed, closest)); farther > current)
        return farther;
    const int closer = stepFor(std::max(needed * kSpare, closest));
    if (closer >= current)
        return std::nullopt;
    closerTicks_ = before + 1;
    if (closerTicks_ < kCloserTicks)
        return std::nullopt;
    closerTicks_ = 0;
    return closer;
}

}  // namespace korvel
