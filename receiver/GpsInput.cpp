#include "receiver/GpsInput.h"

#include <string>

namespace korvel {

GpsInput::GpsInput(const Clock& clock, GpsSurroundings& surroundings)
    : clock_(clock),
      surroundings_(surroundings),
      receiver_(store_, queue_, clock, surroundings),
      decoder_(store_, surroundings) {}

void GpsInput::decode(SentenceQueue& held) {
    const std::int64_t now = clock_.tickMs();
    for (const std::string& sentence : held.sentences()) {
        decoder_.decodeSentence(sentence, now);
    }
    held.clear();
}

bool GpsInput::hasFix(bool need3D) {
    if (surroundings_.simulatorActive() || surroundings_.positionFromAttitudeModule()) {
        return true;
    }
    constexpr int kFewestSatellites = 3;
    const GpsFix fix = store_.copy();
    return fix.fixQuality != 0 &&
           (!need3D || (fix.fix3D == 1 && fix.satsInUse >= kFewestSatellites));
}

SatelliteWords GpsInput::satellitesForDisplay() {
    const auto shared = store_.shared().lock();
    if (!satellitesAskedMs_) {
        shared->satellites = {};
        receiver_.setSatellitesWanted(true);
    }
    satellitesAskedMs_ = clock_.tickMs();
    return shared->satellites;
}

void GpsInput::expireSatellitesWanted() {
    constexpr std::int64_t kPatienceMs = 5000;
    if (satellitesAskedMs_ && clock_.tickMs() - *satellitesAskedMs_ >= kPatienceMs) {
        satellitesAskedMs_.reset();
        receiver_.setSatellitesWanted(false);
    }
}

std::int32_t GpsInput::altitudeFt() const {
    return surroundings_.simulatorActive() ? surroundings_.simulatedAltitudeFt()
                                           : store_.own().altitudeFt;
}

std::int32_t GpsInput::correctedAltitudeFt() const {
    const std::int32_t altitude = altitudeFt();
    return altitudeOffsetFt_ == kNoAltitudeOffset ? altitude : altitude + altitudeOffsetFt_;
}

double GpsInput::magneticToTrue(double magneticDeg) const {
    return decoder_.variation().MagneticToTrue(magneticDeg);
}

}  // namespace korvel
