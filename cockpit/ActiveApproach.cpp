#include "cockpit/ActiveApproach.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cockpit/CockpitData.h"
#include "cockpit/SentinelValues.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {
namespace {

/// So many airports are asked for runways, nearest first, and none that is farther away.
constexpr std::size_t kAirportsAsked = 10;
constexpr double kAirportsWithinNm = 30;

/// Farther from the plan's end, who asks for an approach wants to land before it.
constexpr double kPlanEndNm = 50;

/// An airport of the same key that is farther away is another one.
constexpr double kSameFieldNm = 3;

}  // namespace

std::vector<LandingRunway> ActiveApproach::runwaysOf(const DatabaseRecord& record) const {
    const auto* airport = dynamic_cast<const AirportRecord*>(&record);
    if (airport == nullptr)
        return {};
    AirportRecord detailed = *airport;
    database_.loadDetails(detailed);
    if (detailed.runways.empty()) {
        // A plan keeps its places when other databases are loaded, which do not know them.
        const auto* anew =
            dynamic_cast<const AirportRecord*>(database_.Find(record.key, record.position));
        if (anew != nullptr && DistanceNm(anew->position, record.position) < kSameFieldNm) {
            detailed = *anew;
            database_.loadDetails(detailed);
        }
    }
    return landingRunways(detailed);
}

void ActiveApproach::tick(const Settings& settings, const Variation& variation,
                          const ActiveNavigation::Aircraft& aircraft,
                          const std::shared_ptr<const DatabaseRecord>& destination,
                          std::int64_t nowMs) {
    if (!settings.apprMode) {
        mode_ = {};
        return;
    }
    std::string key = destination ? destination->key : std::string();
    if (key != destinationKey_) {
        runways_ = destination ? runwaysOf(*destination) : std::vector<LandingRunway>();
        destinationKey_ = std::move(key);
    }
    mode_.update({.position = aircraft.position,
                  .trackTrueDeg = known(variation.MagneticToTrue(aircraft.trackMag), kNoAngle),
                  .groundSpeedKt = aircraft.groundSpeedKt,
                  .destinationKey = destinationKey_,
                  .runways = runways_,
                  .automatic = settings.autoApprMode != 0},
                 nowMs);
}

std::vector<LandingRunway> ActiveApproach::nearestRunways(GeoPoint position) const {
    for (const NearPlace& near :
         database_.nearest(position, kAirportKind, kAirportsAsked, kAirportsWithinNm)) {
        const auto record = database_.recordOf(near.place);
        std::vector<LandingRunway> runways =
            record ? runwaysOf(*record) : std::vector<LandingRunway>();
        if (!runways.empty())
            return runways;
    }
    return {};
}

std::vector<LandingRunway> ActiveApproach::offered(GeoPoint position,
                                                   const DatabaseRecord* planEnd) const {
    std::vector<LandingRunway> all = runways_;
    if (all.empty() && planEnd != nullptr && DistanceNm(position, planEnd->position) < kPlanEndNm)
        all = runwaysOf(*planEnd);
    if (all.empty())
        all = nearestRunways(position);
    const auto turning = [&](const LandingRunway& runway) {
        const double bearing = TrueCourseDeg(position, runway.threshold);
        return std::abs(std::remainder(bearing - runway.courseTrueDeg, 360));
    };
    std::ranges::stable_sort(all, {}, turning);
    return all;
}

void ActiveApproach::describe(FlightSituation& situation, GeoPoint position) const {
    if (!mode_.runway())
        return;
    situation.fullScaleNm = ApproachMode::kFullScaleNm;
    // Who has yet to join the center line is not off course.
    situation.crossTrackNm =
        mode_.established() ? std::optional(approachFigures(*mode_.runway(), position).crossTrackNm)
                            : std::nullopt;
}

void ActiveApproach::collect(CockpitData& data, const Variation& variation) const {
    if (!mode_.runway() || !data.position)
        return;
    const LandingRunway& runway = *mode_.runway();
    const ApproachFigures seen = approachFigures(runway, *data.position);
    data.approach = {.runway = runway, .toGoNm = seen.toGoNm};
    data.fullScaleNm = ApproachMode::kFullScaleNm;
    data.legStart.reset();
    data.obsCourseMagDeg.reset();
    data.bearingMagDeg = variation.TrueToMagnetic(seen.bearingTrueDeg);
    data.distanceNm = seen.distanceNm;
    data.crossTrackNm = seen.crossTrackNm;
    data.desiredTrackTrueDeg = runway.courseTrueDeg;
    data.desiredTrackMagDeg = variation.TrueToMagnetic(runway.courseTrueDeg);
    data.offCourseDeg.reset();
    if (seen.distanceNm > 0)
        data.offCourseDeg = std::asin(seen.crossTrackNm / seen.distanceNm) * kRadToDeg;
    data.targetAltitudeFt = seen.glidePathFt;
}

}  // namespace korvel
