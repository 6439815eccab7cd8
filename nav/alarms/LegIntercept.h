#pragma once

#include "nav/leg/NavigationState.h"

namespace korvel {

/// Whether the aircraft has been on the course of the leg that is flown. Who has yet to join it is
/// not off course. User-interface thread only.
class LegIntercept {
 public:
    /// Once per update of the navigation. Joined is what lies within the HSI's full scale.
    bool update(const NavigationState& state, double fullScaleNm);
    /// The leg is to be joined anew.
    void forget() { joined_ = false; }

 private:
    GeoPoint start_;
    GeoPoint waypoint_;
    double obsCourse_ = kNoAngle;
    bool joined_ = false;
};

}  // namespace korvel
