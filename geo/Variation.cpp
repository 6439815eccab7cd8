#include "geo/Variation.h"

#include "geo/Geodesy.h"

namespace korvel {

bool Variation::isKnown() const {
    return databaseDeg != kNoAngle || (!ignoreReceiver && receiverDeg != kNoAngle);
}

double Variation::inForceDeg() const {
    if (!ignoreReceiver && receiverDeg != kNoAngle)
        return receiverDeg;
    return databaseDeg != kNoAngle ? databaseDeg : 0;
}

double Variation::TrueToMagnetic(double trueDeg) const {
    return trueDeg == kNoAngle ? kNoAngle : PositiveMod(trueDeg - inForceDeg(), 360);
}

double Variation::MagneticToTrue(double magneticDeg) const {
    return magneticDeg == kNoAngle ? kNoAngle : PositiveMod(magneticDeg + inForceDeg(), 360);
}

}  // namespace korvel
