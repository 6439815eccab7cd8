#pragma once

#include <optional>

#include "paint/Canvas.h"

namespace korvel {

class MapViewport;

/// Automatic zoom: keeps the active waypoint on the map where it lies now: where the window has
/// more room, as at the sides of a wide one, the range is closer. It goes out at once, and in only
/// when the waypoint stays well inside the closer range for three seconds: noise makes it step
/// once, never back and forth. A waypoint that no range holds leaves the range alone.
class AutoZoom {
 public:
    /// Nearer than this it never comes: the runways of a field are seen, the way to it as well.
    static constexpr int kClosestNm = 4;
    /// The same in approach mode.
    static constexpr int kClosestInApproachNm = 1;

    /// One half-second tick; the range to go to, if any. `waypoint` is the active one's place on
    /// the screen at the current range.
    std::optional<int> tick(std::optional<Point> waypoint, const MapViewport& viewport,
                            bool approachMode);

 private:
    int closerTicks_ = 0;  // for how long the closer range would do
};

}  // namespace korvel
