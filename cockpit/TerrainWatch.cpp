#include "cockpit/TerrainWatch.h"

#include <algorithm>

#include "cockpit/SentinelValues.h"
#include "geo/Geodesy.h"
#include "ground/terrain/TerrainStore.h"
#include "nav/approach/LandingRunway.h"
#include "navdb/NavDatabase.h"
#include "navdb/records/AirportRecord.h"

namespace korvel {
namespace {

/// Posts of three arc seconds, or every fourth of one: the highest of those in between counts.
constexpr double kPostsM = 125;
/// Tiles this near are kept ready, some minutes ahead.
constexpr double kReadyNm = 6;
constexpr std::size_t kAirportsAsked = 3;
constexpr double kAirportsWithinNm = 5;

}  // namespace

TerrainWatch::TerrainWatch(TerrainStore& terrain, const NavDatabase& database, AlarmBoard& board)
    : terrain_(terrain), database_(database) {
    addTerrainAlarms(board, clearance_);
}

void TerrainWatch::update(const Situation& now) {
    clearance_ = {};
    if (!now.position)
        return;
    terrain_.want(TerrainStore::Purpose::Alarms, TerrainStore::around(*now.position, kReadyNm),
                  kPostsM);
    if (!now.trackTrueDeg || !now.altitudeFt || !now.groundSpeedKt ||
        *now.groundSpeedKt < kTerrainFromKt)
        return;
    const TerrainClearance ahead = clearanceAhead(
        {.position = *now.position,
         .trackTrueDeg = *now.trackTrueDeg,
         .groundSpeedKt = *now.groundSpeedKt,
         .altitudeFt = *now.altitudeFt,
         .verticalSpeedFpm = now.verticalSpeedFpm.value_or(0),
         .turnRateDegPerSec = now.turnRateDegPerSec.value_or(0)},
        [this](GeoPoint point, double withinNm) { return terrain_.highestFt(point, withinNm); });
    // Runways are looked up in the databases only while it matters.
    const bool low = ahead.withinMinuteFt && *ahead.withinMinuteFt < kTerrainEndsFt;
    if (!low || !isLanding(landingNear(now)))
        clearance_ = ahead;
}

LandingNear TerrainWatch::landingNear(const Situation& now) const {
    LandingNear near{
        .runwayNm = nearestRunwayNm(*now.position), .destinationNm = {}, .aboveDestinationFt = {}};
    if (now.destination == nullptr)
        return near;
    near.destinationNm = DistanceNm(*now.position, now.destination->position);
    if (const auto elevationFt = elevationOf(*now.destination))
        near.aboveDestinationFt = *now.altitudeFt - *elevationFt;
    return near;
}

std::optional<double> TerrainWatch::nearestRunwayNm(GeoPoint position) const {
    std::optional<double> nearest;
    for (const NearPlace& near :
         database_.nearest(position, kAirportKind, kAirportsAsked, kAirportsWithinNm)) {
        const auto record = database_.recordOf(near.place);
        auto* const airport = dynamic_cast<AirportRecord*>(record.get());
        if (airport == nullptr)
            continue;
        database_.loadDetails(*airport);
        for (const LandingRunway& runway : landingRunways(*airport))
            for (const GeoPoint end : {runway.threshold, runway.farEnd})
                nearest = std::min(nearest.value_or(kAirportsWithinNm), DistanceNm(position, end));
    }
    return nearest;
}

}  // namespace korvel
