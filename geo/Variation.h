#pragma once

#include "geo/GeoPoint.h"

namespace korvel {

/// The one pair of functions that crosses between true and magnetic: degrees, the variation east
/// positive. Both return 0 up to but not including 360.
double magneticOf(double trueDeg, double variationDeg);
double trueOf(double magneticDeg, double variationDeg);

/// The two magnetic variations that the document knows. Degrees, east positive, kNoAngle when
/// unknown. The receiver's sentences count east as negative: whoever fills `receiverDeg` turns the
/// sign.
struct Variation {
    double receiverDeg = kNoAngle;
    double databaseDeg = kNoAngle;  ///< for the present area
    bool ignoreReceiver = false;    ///< setting "IgnoreMagVar"

    /// Whether one of the two may be used; angles that are turned without it stay true.
    bool isKnown() const;

    /// The one in force: the receiver's unless it is to be ignored or unknown, else the
    /// database's, else 0.
    double inForceDeg() const;

    /// Both return kNoAngle for kNoAngle, else an angle of 0 up to but not including 360.
    double TrueToMagnetic(double trueDeg) const;
    double MagneticToTrue(double magneticDeg) const;
};

}  // namespace korvel
