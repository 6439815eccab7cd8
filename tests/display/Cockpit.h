#pragma once

#include "display/CockpitData.h"
#include "nav/Geodesy.h"

namespace korvel {

inline GeoPoint atDegrees(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

/// In flight near Munich with a good fix.
inline CockpitData flying() {
    CockpitData data;
    data.position = atDegrees(48.3537, 11.7861);
    data.groundSpeedKt = 118.4;
    data.trackMagDeg = 83;
    data.trackTrueDeg = 86;
    data.altitudeFt = 5500;
    data.receiverActive = true;
    data.fixQuality = 1;
    data.fix3D = true;
    data.satsInUse = 8;
    data.now = {2024, 5, 1, 14, 5, 7};
    return data;
}

/// The same flight, `seconds` after the fix was lost.
inline CockpitData lost(int seconds) {
    CockpitData data;
    data.lastPosition = flying().position;
    data.positionAgeSec = seconds;
    data.receiverActive = true;
    data.now = flying().now;
    return data;
}

}  // namespace korvel
