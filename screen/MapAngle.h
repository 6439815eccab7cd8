#pragma once

#include "cockpit/CockpitData.h"

namespace korvel {

/// Which way is up on a page that turns with the aircraft.
///
/// The map turns by the true track while it can be trusted: at a standstill a receiver's track
/// wanders, and without a fresh fix there is none. Then the map stays as it last was; before the
/// first track north is up.
class MapAngle {
 public:
    static constexpr double kSlowestKt = 3;

    /// Takes over a new situation; returns the true course that points up, in whole degrees, 0 to
    /// 359.
    int update(const CockpitData& data);
    int degrees() const { return degrees_; }

 private:
    int degrees_ = 0;
};

}  // namespace korvel
