#include "cockpit/Flight.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "cockpit/NearAirports.h"
#include "cockpit/PlanViewBuilder.h"
#include "cockpit/SentinelValues.h"
#include "config/Settings.h"
#include "config/Text.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "navdb/file/DatabaseFile.h"

namespace korvel {
namespace {

constexpr std::string_view kFlightLogName = "korvel-log.txt";
constexpr std::string_view kTrackJournalName = "track.journal";
/// Off and on places of the flight log lie this near an airport.
constexpr double kAtAirportNm = 3;
/// A waypoint on a course has been flown to when it is so near and no longer ahead.
constexpr double kFlownToNm = 1;
constexpr int kAbeamDeg = 90;
/// Nobody sees a distance change by less.
constexpr double kNearAirportsStepNm = 0.1;
/// Boeing Field, Seattle.
constexpr GeoPoint kDefaultField{47.53 * kDegToRad, -122.302 * kDegToRad};

std::filesystem::path inFolder(const std::filesystem::path& folder, std::string_view name) {
    return folder.empty() ? folder : folder / name;
}

}  // namespace

Flight::Flight(const Clock& clock, const std::filesystem::path& folder)
    : clock_(clock),
      database_(clock),
      report_(folder.empty() ? LoadReport() : LoadReport(folder / kLoadReportName)),
      plan_(database_, loader_.userRecords(),
            [this](bool edited) {
                // An edited plan leaves a course that does not belong to it alone.
                if (!edited || !navigation_.directLeg())
                    navigation_.planChanged();
            }),
      track_(clock_, inFolder(folder, kTrackJournalName)),
      log_(clock_, inFolder(folder, kFlightLogName), [this] { return placeHere(); }),
      navigation_({.clock = clock_,
                   .database = database_,
                   .fixes = plan_.fixes(),
                   .plan = plan_.plan(),
                   .simulator = simulator_,
                   .track = track_,
                   .log = log_}),
      approach_(database_) {
    addFlightAlarms(alarms_, situation_);
    updateDatabaseNotice();
}

Flight::~Flight() {
    log_.close();
    track_.endSession();
}

// Databases

void Flight::loadDatabases(std::span<const std::filesystem::path> folders,
                           const DatabaseLoader::Progress& progress) {
    nearAirports_.reset();
    loader_.load(folders, progress);
    nearAirports_.reset();
    updateDatabaseNotice();
}

void Flight::updateDatabaseNotice() {
    const auto& files = database_.files();
    databaseNotice_.clear();
    if (files.empty()) {
        databaseNotice_ = text(kStatusTexts.noDatabase);
        return;
    }
    const std::uint32_t today = dateNumber(clock_.localNow());
    std::uint32_t oldest = today;
    for (const auto& file : files) {
        oldest = std::min(oldest, file->header().expiry);
    }
    if (oldest == 0) {
        databaseNotice_ = text(kStatusTexts.chartsUndated);
    } else if (oldest < today) {
        databaseNotice_ =
            formatText(kStatusTexts.chartsExpired, {std::string_view(dashedDate(oldest))});
    }
}

void Flight::lookUpNearAirports(const Settings& settings, const Variation& variation) {
    const GeoPoint here = navigation_.present().position;
    if (!std::exchange(nearAirportsWanted_, false) || !IsValid(here)) {
        nearAirports_.reset();
        return;
    }
    if (nearAirports_ && DistanceNm(here, nearAirportsPoint_) < kNearAirportsStepNm) {
        return;
    }
    nearAirportsPoint_ = here;
    auto airports = std::make_shared<std::vector<NearAirport>>();
    findNearAirports(database_, here, variation,
                     {.privateAirports = settings.displayPrivateAirports != 0}, *airports);
    nearAirports_ = std::move(airports);
}

std::string Flight::placeHere() const {
    const GeoPoint here = navigation_.present().position;
    if (!IsValid(here)) {
        return {};
    }
    const auto near = database_.nearest(here, kAirportKind, 1, kAtAirportNm);
    return near.empty() ? std::string() : std::string(near.front().place.ident.view());
}

// Simulator

SimulatorStart Flight::simulatorStart(const Settings& settings) const {
    SimulatorStart start{.position = kDefaultField};
    const double lat = ParseDouble(settings.simLat);
    const double lon = ParseDouble(settings.simLon);
    const bool isOnEarth = std::abs(lat) <= 90 && std::abs(lon) <= 180;
    const std::vector<PlanWaypoint> entries = plan_.entries();
    if (isOnEarth && (lat != 0 || lon != 0)) {
        start.position = {lat * kDegToRad, lon * kDegToRad};
    } else if (!entries.empty()) {
        start.position = entries.front().position();
    }
    const auto away = std::ranges::find_if(entries, [&](const PlanWaypoint& entry) {
        return !SamePoint(entry.position(), start.position);
    });
    if (away != entries.end()) {
        const double course = TrueCourseDeg(start.position, away->position());
        start.headingMag = RoundToInt(
            Variation{.databaseDeg = database_.variationAt(start.position)}.TrueToMagnetic(course));
    }
    return start;
}

void Flight::startSimulator(const SimulatorStart& start) {
    simulator_.start(start.position, start.headingMag, start.speedKt, start.altitudeFt,
                     clock_.tickMs());
    plan_.activate();
}

void Flight::stopSimulator() {
    simulator_.stop();
    timeFactor_ = 1;
}

void Flight::setTimeFactor(int factor) { timeFactor_ = std::clamp(factor, 1, kFastestTime); }

// The tick

void Flight::lookAround(const ActiveNavigation::Aircraft& received) {
    navigation_.lookAround(received);
    plan_.setPresent(known(navigation_.present().position));
}

void Flight::prepare(const Settings& settings, const Variation& variation) {
    navigation_.setOptions({.variation = variation,
                            .tracking = settings.tracking,
                            .log = FlightLog::Options::from(settings)});
}

void Flight::tick(const Settings& settings, const Variation& variation,
                  const ActiveNavigation::Aircraft& received) {
    const int steps = simulator_.running() ? timeFactor_ : 1;
    for (int step = 0; step < steps; ++step) {
        if (step > 0) {
            clock_.advanceMs(kTickMs);
        }
        navigation_.NavUpdate(received);
        if (settings.autoSequence) {
            goOnWithPlan();
        }
        verticalSpeed_.add(clock_.tickMs(), navigation_.present().altitudeFt);
        watchFlight(settings, variation);
    }
    lookUpNearAirports(settings, variation);
}

/// Ends a course to a waypoint of the plan when it has been flown to the waypoint: the plan's next
/// leg follows. Without a course the plan takes over by itself.
void Flight::goOnWithPlan() {
    const auto& record = navigation_.directRecord();
    if (!navigation_.directLeg() || !record) {
        return;
    }
    const NavigationState state = navigation_.state();
    if (state.obsCourse == kNoAngle || state.distanceNm > kFlownToNm) {
        return;
    }
    const bool passed =
        std::abs(HeadingDifferenceDeg(state.bearingMag, state.obsCourse)) > kAbeamDeg;
    const bool planned = [&] {
        const auto plan = plan_.plan().lock();
        return plan->has_value() && (*plan)->contains(record->key);
    }();
    if (passed && planned) {
        navigation_.ClearNavigation();
    }
}

/// Where the flight ends, once it is what is flown to: the plan's last waypoint, or the airport of
/// a direct leg. Null for none.
std::shared_ptr<const DatabaseRecord> Flight::destination() {
    if (navigation_.directLeg()) {
        const auto& record = navigation_.directRecord();
        return record && record->GetKind() == kAirportKind ? record : nullptr;
    }
    const auto plan = plan_.plan().lock();
    if (!plan->has_value()) {
        return nullptr;
    }
    const auto& entries = (*plan)->entries();
    return (*plan)->currentIndex() == entries.size() - 1 ? entries.back().record : nullptr;
}

void Flight::watchFlight(const Settings& settings, const Variation& variation) {
    const ActiveNavigation::Aircraft& present = navigation_.present();
    if (!IsValid(present.position)) {
        return;
    }
    situation_ = {.crossTrackNm = known(navigation_.state().crossTrackNm, kNoDistanceNm),
                  .groundSpeedKt = present.groundSpeedKt,
                  .altitudeFt = present.altitudeFt,
                  .gearWarning = settings.gearWarning,
                  .approachSpeedKt = settings.approachSpeedKt};
    const auto last = destination();
    if (last) {
        const auto* airport = dynamic_cast<const AirportRecord*>(last.get());
        situation_.destination = {.name = std::string(last->ident.view()),
                                  .distanceNm = DistanceNm(present.position, last->position),
                                  .airport = airport != nullptr};
        if (airport != nullptr && airport->elevationFt != kNoElevationFt) {
            situation_.destination->elevationFt = airport->elevationFt;
        }
    }
    approach_.tick(settings, variation, present, last, clock_.tickMs());
    approach_.describe(situation_, present.position);
    alarms_.update(clock_.tickMs());
}

void Flight::refresh() {
    const auto plan = plan_.plan().lock();
    if (!plan->has_value()) {
        planView_.reset();
        return;
    }
    const PlanViewSource source{.revision = plan_.revision(), .active = (*plan)->currentIndex()};
    if (planView_ && source == planViewSource_) {
        return;
    }
    planViewSource_ = source;
    PlanView view = makePlanView(**plan, database_);
    view.fileName = plan_.file().filename().string();
    view.changed = plan_.changed();
    planView_ = std::make_shared<const PlanView>(std::move(view));
}

void Flight::collectSimulated(CockpitData& data, const Variation& variation) const {
    const ActiveNavigation::Aircraft& present = navigation_.present();
    data.simulated = true;
    data.status.clear();
    data.position = known(present.position);
    data.lastPosition = data.position;
    data.positionAgeSec = 0;
    data.groundSpeedKt = present.groundSpeedKt;
    data.trackMagDeg = known(present.trackMag, kNoAngle);
    data.trackTrueDeg = known(variation.MagneticToTrue(present.trackMag), kNoAngle);
    data.altitudeFt = present.altitudeFt;
}

void Flight::collect(CockpitData& data, const Variation& variation) const {
    if (simulator_.running()) {
        collectSimulated(data, variation);
    }
    constexpr std::int64_t kSecondsPerDay = 86400;
    data.utcSecondOfDay = static_cast<int>(clock_.unixSeconds() % kSecondsPerDay);
    if (const auto seconds = log_.flightTimeSec()) {
        data.flightTimeSec = static_cast<int>(*seconds);
    }
    data.databaseNotice = databaseNotice_;
    data.plan = planView_;
    data.track = track_.track();
    data.trackSlots = data.track ? data.track->read()->slots.size() : 0;
    if (!data.position) {
        return;
    }
    data.alarms = alarms_.shown();
    data.nearAirports = nearAirports_;
    if (variation.isKnown()) {
        data.variationDeg = variation.inForceDeg();
    }
    data.verticalSpeedFpm = verticalSpeed_.feetPerMinute();
    collectLeg(data, variation);
    approach_.collect(data, variation);
}

void Flight::collectLeg(CockpitData& data, const Variation& variation) const {
    const NavigationState state = navigation_.state();
    if (state.activeKey.empty() && !navigation_.directLeg()) {
        return;
    }
    data.activeKey = state.activeKey;
    data.activeName = state.activeName;
    data.activeWaypoint = known(state.activeWaypoint);
    data.legStart = known(state.legStart);
    data.bearingMagDeg = known(state.bearingMag, kNoAngle);
    data.distanceNm = known(state.distanceNm, kNoDistanceNm);
    data.crossTrackNm = known(state.crossTrackNm, kNoDistanceNm);
    data.desiredTrackTrueDeg = known(state.desiredTrack, kNoAngle);
    data.desiredTrackMagDeg = known(variation.TrueToMagnetic(state.desiredTrack), kNoAngle);
    data.obsCourseMagDeg = known(state.obsCourse, kNoAngle);
    data.offCourseDeg = known(state.offCourseDeg, kNoAngle);
    data.targetAltitudeFt = known(state.pathTargetAltFt);
    data.pathAltitudeFt = known(state.pathAltFt);
    data.directLeg = navigation_.directLeg();
}

}  // namespace korvel
