#include "nav/alarms/LegIntercept.h"

#include <cmath>

namespace korvel {

bool LegIntercept::update(const NavigationState& state, double fullScaleNm) {
    const bool same = start_ == state.legStart && waypoint_ == state.activeWaypoint &&
                      obsCourse_ == state.obsCourse;
    if (!same) {
        start_ = state.legStart;
        waypoint_ = state.activeWaypoint;
        obsCourse_ = state.obsCourse;
        joined_ = false;
    }
    if (state.crossTrackNm != kNoDistanceNm && std::abs(state.crossTrackNm) <= fullScaleNm)
        joined_ = true;
    return joined_;
}

}  // namespace korvel
