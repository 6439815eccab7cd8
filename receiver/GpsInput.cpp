#include "receiver/GpsInput.h"

#include <utility>

namespace korvel {

GpsInput::GpsInput(const Clock& clock, LineOutlets outlets)
    : clock_(clock),
      merge_(store_.sky()),
      receiver_(store_, queue_, std::move(outlets)),
      decoder_(store_) {}

void GpsInput::onSentence(std::string_view text, std::int64_t arrivedMs) {
    if (!allTalkers_)
        return receiver_.onSentence(text, arrivedMs);
    for (const std::string_view line : merge_.take(text))
        receiver_.onSentence(line, arrivedMs);
}

void GpsInput::decode(SentenceQueue& held) {
    if (!isSupplanted())
        for (const auto& [sentence, arrivedMs] : held.sentences())
            decoder_.decodeSentence(sentence, arrivedMs);
    held.clear();
}

bool GpsInput::hasFix(bool need3D) {
    if (isSupplanted())
        return true;
    constexpr int kFewestSatellites = 3;
    const GpsFix fix = store_.copy();
    return fix.fixQuality != 0 &&
           (!need3D ||
            (fix.fix3D == 1 && (countsNoSatellites_ || fix.satsInUse >= kFewestSatellites)));
}

bool GpsInput::is3D() const {
    constexpr int kFewest = 4;
    const GpsFix& fix = store_.own();
    if (isFresh(fix.fixKindTickMs))
        return fix.fix3D == 1;
    // None is what a receiver says that does not count them.
    return fix.satsInUse >= kFewest || fix.satsInUse <= 0;
}

bool GpsInput::isAltitudeGood() {
    return hasFix(false) && is3D() && isFresh(store_.own().altitudeTickMs);
}

bool GpsInput::isFresh(std::int64_t storedMs) const {
    constexpr std::int64_t kFreshMs = 5000;
    return storedMs != kNeverStored && clock_.tickMs() - storedMs < kFreshMs;
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

std::vector<SkySatellite> GpsInput::sky() {
    return allTalkers_ && satellitesAskedMs_ ? store_.sky().lock()->satellites()
                                             : std::vector<SkySatellite>();
}

void GpsInput::expireSatellitesWanted() {
    constexpr std::int64_t kPatienceMs = 5000;
    if (satellitesAskedMs_ && clock_.tickMs() - *satellitesAskedMs_ >= kPatienceMs) {
        satellitesAskedMs_.reset();
        receiver_.setSatellitesWanted(false);
    }
}

std::int32_t GpsInput::altitudeFt() const {
    return isSupplanted() ? otherSource_->aircraft().altitudeFt.value_or(0)
                          : store_.own().altitudeFt;
}

std::int32_t GpsInput::correctedAltitudeFt() const {
    const std::int32_t altitude = altitudeFt();
    return altitudeOffsetFt_ == kNoAltitudeOffset ? altitude : altitude + altitudeOffsetFt_;
}

Variation GpsInput::variation() const {
    return decoder_.variation(isSupplanted() ? otherSource_->aircraft().position
                                             : store_.own().position);
}

double GpsInput::magneticToTrue(double magneticDeg) const {
    return variation().MagneticToTrue(magneticDeg);
}

}  // namespace korvel
