#pragma once

#include <optional>

namespace korvel {

class MapViewport;

/// Automatic zoom: keeps the active waypoint on the map whichever way it lies, so that a turn never
/// changes the range. It goes out at once, and in only when the waypoint stays well inside the
/// closer range for three seconds: noise makes it step once, never back and forth.
class AutoZoom {
 public:
    /// Nearer than this it never comes: the runways of a field are seen, the way to it as well.
    static constexpr int kClosestNm = 4;
    /// The same in approach mode.
    static constexpr int kClosestInApproachNm = 1;

    /// One half-second tick; the range to go to, if any. `distanceNm` is to the active waypoint.
    std::optional<int> tick(std::optional<double> distanceNm, const MapViewport& viewport,
                            bool approachMode);

 private:
    int closerTicks_ = 0;  // for how long the closer range would do
};

/// How much of the range the map shows in every direction, 0 to 1.
double reachOf(const MapViewport& viewport);

}  // namespace korvel
