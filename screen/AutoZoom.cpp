#include "screen/AutoZoom.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "map/MapViewport.h"

namespace korvel {
namespace {

/// From the waypoint to the map's edge: clear of the boxes there and of the HSI's heading.
constexpr double kMarginPx = 48;
constexpr double kLeastRoom = 0.1;  // of windows too small for it
/// A closer range must do with so much to spare.
constexpr double kSpare = 1.25;
constexpr int kCloserTicks = 6;

int stepFor(double rangeNm) {
    const auto* step = std::ranges::lower_bound(kRangeStepsNm, rangeNm);
    return step == kRangeStepsNm.end() ? kRangeStepsNm.back() : *step;
}

/// The range at which the waypoint would just lie within the margins.
double neededRangeNm(Point waypoint, const MapViewport& viewport) {
    const auto shareOf = [](double offset, double before, double behind) {
        const double side = offset < 0 ? before : behind;
        return std::abs(offset) / std::max(side - kMarginPx, kLeastRoom * (before + behind));
    };
    const double x = viewport.aircraftX();
    const double y = viewport.aircraftY();
    return viewport.currentRangeNm() * std::max(shareOf(waypoint.x - x, x, viewport.width() - x),
                                                shareOf(waypoint.y - y, y, viewport.height() - y));
}

}  // namespace

std::optional<int> AutoZoom::tick(std::optional<Point> waypoint, const MapViewport& viewport,
                                  bool approachMode) {
    const int before = std::exchange(closerTicks_, 0);
    if (!waypoint)
        return std::nullopt;
    const double needed = neededRangeNm(*waypoint, viewport);
    if (needed > kRangeStepsNm.back())
        return std::nullopt;
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
