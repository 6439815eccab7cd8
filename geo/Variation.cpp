#include "geo/Variation.h"

#include "geo/Geodesy.h"

namespace korvel {

double magneticOf(double trueDeg, double variationDeg) {
    return PositiveMod(trueDeg - variationDeg, 360);
}

double trueOf(double magneticDeg, double variationDeg) {
    return PositiveMod(magneticDeg + variationDeg, 360);
}

bool Variation::isKnown() const {
    return databaseDeg != kNoAngle || (!ignoreReceiver && receiverDeg != kNoAngle);
}

double Variation::inForceDeg() const {
    if (!ignoreReceiver && receiverDeg != kNoAngle)
        return receiverDeg;
    return databaseDeg != kNoAngle ? databaseDeg : 0;
}

double Variation::TrueToMagnetic(double trueDeg) const {
    return trueDeg == kNoAngle ? kNoAngle : magneticOf(trueDeg, inForceDeg());
}

double Variation::MagneticToTrue(double magneticDeg) const {
    return magneticDeg == kNoAngle ? kNoAngle : trueOf(magneticDeg, inForceDeg());
}

}  // namespace korvel
