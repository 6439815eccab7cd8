#include "map/profile/ProfileFeed.h"

#include <algorithm>
#include <utility>

#include "cockpit/CockpitData.h"
#include "cockpit/PlaceClass.h"
#include "config/Settings.h"

namespace korvel {
namespace {

constexpr double kShortestNm = 5;
constexpr double kLongestNm = 250;
constexpr double kPixelsPerStep = 3;
constexpr double kFewestSteps = 100;
constexpr double kMostSteps = 800;
constexpr double kMetresPerNm = 1852;
/// Finer tiles would take the memory of others; the terrain alarms look at these.
constexpr double kFinestPostsM = 125;

/// Slower than this nobody flies, and faster turns of speed and climb are noise.
constexpr double kSlowestKt = 20;
constexpr double kPredictedMin = 5;

}  // namespace

double profileLengthNm(int rangeNm) { return std::clamp(2.0 * rangeNm, kShortestNm, kLongestNm); }

void ProfileFeed::update(const Request& request) {
    ProfileRoute route = profileRoute(request.data);
    const double length = request.lengthNm.value_or(route.lengthNm());
    Cut wanted{
        .route = std::move(route),
        .lengthNm = length,
        .steps = static_cast<std::size_t>(
            std::clamp(request.widthPx / kPixelsPerStep, kFewestSteps, kMostSteps)),
        .terrain = terrainRevision(),
        .airspaces = airspaceRevision(),
        .showsAirspaces = MapPlaceOptions::from(request.settings).shows(PlaceLayerBit::Airspaces)};
    if (cut_ != wanted) {
        cut_ = std::move(wanted);
        cut();
    }
    addFlight(request.data);
}

void ProfileFeed::cut() {
    content_.route = cut_->route;
    content_.lengthNm = cut_->lengthNm;
    std::vector<GeoPoint> way;
    for (const ProfileStop& stop : cut_->route.stops)
        way.push_back(stop.position);
    content_.line = profileLine(way, cut_->lengthNm, cut_->steps);
    if (sources_.terrain != nullptr)
        sources_.terrain->want(TerrainStore::Purpose::Profile, tilesAlong(content_.line),
                               std::max(content_.line.stepNm * kMetresPerNm, kFinestPostsM));
    content_.ground = groundAlong(content_.line, sources_.terrain, sources_.map);
    content_.airspaces =
        airspacesAlong(content_.line, cut_->showsAirspaces ? sources_.airspaces : nullptr);
}

void ProfileFeed::addFlight(const CockpitData& data) {
    content_.altUnit = data.altUnit;
    content_.distanceUnit = data.distanceUnit;
    content_.altitudeFt = data.seaAltitudeFt();
    content_.climbFtPerNm.reset();
    if (data.verticalSpeedFpm && data.groundSpeedKt.value_or(0) >= kSlowestKt) {
        constexpr double kMinutesPerHour = 60;
        content_.climbFtPerNm = *data.verticalSpeedFpm * kMinutesPerHour / *data.groundSpeedKt;
        content_.predictedNm = *data.groundSpeedKt * kPredictedMin / kMinutesPerHour;
    }
    content_.planned = plannedAltitudes(content_.route, content_.altitudeFt);
}

void ProfileFeed::rest() {
    if (!std::exchange(cut_, std::nullopt))
        return;
    content_ = {};
    if (sources_.terrain != nullptr)
        sources_.terrain->want(TerrainStore::Purpose::Profile, {}, 0);
}

bool ProfileFeed::hasNews() const {
    return cut_ && (cut_->terrain != terrainRevision() || cut_->airspaces != airspaceRevision());
}

std::uint64_t ProfileFeed::terrainRevision() const {
    return sources_.terrain != nullptr ? sources_.terrain->revision() : 0;
}

std::uint64_t ProfileFeed::airspaceRevision() const {
    return sources_.airspaces != nullptr ? sources_.airspaces->revision() : 0;
}

}  // namespace korvel
