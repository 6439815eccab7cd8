#include "cockpit/Flight.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "cockpit/SentinelValues.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "navdb/NavDatabase.h"

namespace korvel {
namespace {

constexpr std::string_view kFlightLogName = "korvel-log.txt";
constexpr std::string_view kTrackJournalName = "track.journal";
/// Off and on places of the flight log lie this near an airport.
constexpr double kAtAirportNm = 3;
/// A waypoint on a course has been flown to when it is so near and no longer ahead.
constexpr double kFlownToNm = 1;
constexpr int kAbeamDeg = 90;

std::filesystem::path inFolder(const std::filesystem::path& folder, std::string_view name) {
    return folder.empty() ? folder : folder / name;
}

}  // namespace

Flight::Flight(const Foundations& foundations)
    : clock_(foundations.clock),
      database_(foundations.database),
      plan_(foundations.database, foundations.userRecords,
            {.onChange =
                 [this](bool edited) {
                     // An edited plan leaves a course that does not belong to it alone.
                     if (!edited || !navigation_.directLeg())
                         navigation_.planChanged();
                 },
             .flown = [this] { return navigation_.flown(); },
             .flyAgain =
                 [this](const ActiveNavigation::Flown& flown) { navigation_.flyAgain(flown); }}),
      track_(clock_, inFolder(foundations.folder, kTrackJournalName)),
      logFile_(inFolder(foundations.folder, kFlightLogName)),
      log_(timeOfDay_, logFile_, [this] { return placeHere(); }),
      navigation_({.clock = clock_,
                   .database = foundations.database,
                   .fixes = plan_.fixes(),
                   .plan = plan_.plan(),
                   .simulator = simulator_,
                   .track = track_,
                   .log = log_}),
      approach_(foundations.database) {}

Flight::~Flight() { endSession(); }

void Flight::endSession() {
    log_.close();
    track_.endSession();
}

std::string Flight::takeTrouble() {
    std::string trouble = track_.takeTrouble();
    if (trouble.empty())
        trouble = log_.takeTrouble();
    return trouble.empty() ? plan_.takeTrouble() : trouble;
}

std::vector<std::string> Flight::troubles() const {
    std::vector<std::string> found;
    for (const std::string* trouble : {&track_.trouble(), &log_.trouble(), &plan_.trouble()})
        if (!trouble->empty())
            found.push_back(*trouble);
    return found;
}

std::string Flight::placeHere() const {
    const GeoPoint here = navigation_.present().position;
    if (!IsValid(here))
        return {};
    const auto near = database_.nearest(here, kAirportKind, 1, kAtAirportNm);
    return near.empty() ? std::string() : std::string(near.front().place.ident.view());
}

std::optional<int> Flight::flightTimeSec() const {
    const auto seconds = log_.flightTimeSec();
    return seconds ? std::optional(static_cast<int>(*seconds)) : std::nullopt;
}

// Sources

/// What was made of where the aircraft was would mix with where it is now.
void Flight::forgetDerived() {
    verticalSpeed_.forget();
    alarms_.forget();
    track_.breakHere();
}

/// Another aircraft flies on: it is elsewhere, and it has come to no waypoint yet.
void Flight::beginAnew() {
    forgetDerived();
    if (!plan_.activate())
        navigation_.ClearNavigation();
}

void Flight::sourceChanged(bool receiver) {
    if (std::exchange(fromReceiver_, receiver) != receiver)
        beginAnew();
    else
        forgetDerived();
}

void Flight::startSimulator(const SimulatorStart& start) {
    simulator_.start(start.position, start.headingMag, start.speedKt,
                     std::clamp(start.altitudeFt, kLowestAltitudeFt, kHighestAltitudeFt),
                     clock_.tickMs());
    simulator_.setWind(start.wind);
    simulator_.setFollowsPlan(start.followsPlan);
    beginAnew();
}

void Flight::stopSimulator() {
    if (simulator_.running())
        beginAnew();
    simulator_.stop();
    timeFactor_ = 1;
    if (std::exchange(trackIsAhead_, false))
        track_.returnToTimeOfDay();
}

void Flight::setTimeFactor(int factor) { timeFactor_ = std::clamp(factor, 1, kFastestTime); }

// The tick

void Flight::lookAround(const ActiveNavigation::Aircraft& received) {
    navigation_.lookAround(received);
    plan_.setPresent(known(navigation_.present().position));
}

void Flight::prepare(const Settings& settings, const Variation& variation,
                     std::int32_t altitudeOffsetFt) {
    plan_.setIcaoPrefix(settings.icaoPrefix);
    navigation_.setOptions({.variation = variation,
                            .altitudeOffsetFt = altitudeOffsetFt,
                            .tracking = settings.tracking,
                            .logging = fromReceiver_,
                            .log = FlightLog::Options::from(settings)});
}

void Flight::tick(const Settings& settings, const Variation& variation,
                  const ActiveNavigation::Aircraft& received) {
    step(settings, variation, received);
    const int more = navigation_.simulated() ? timeFactor_ - 1 : 0;
    for (int i = 0; i < more; ++i) {
        clock_.advanceMs(kTickMs);
        trackIsAhead_ = true;
        step(settings, variation, received);
    }
}

void Flight::refresh() {
    shownPlan_.update(plan_, database_, IsValid(navigation_.present().position));
}

void Flight::step(const Settings& settings, const Variation& variation,
                  const ActiveNavigation::Aircraft& received) {
    navigation_.NavUpdate(received);
    if (settings.autoSequence)
        goOnWithPlan();
    verticalSpeed_.add(clock_.tickMs(), navigation_.present().altitudeFt);
    watch(settings, variation);
}

/// Ends a course to a waypoint of the plan when it has been flown to the waypoint: the plan's next
/// leg follows. Without a course the plan takes over by itself.
void Flight::goOnWithPlan() {
    const auto& record = navigation_.directRecord();
    if (!navigation_.directLeg() || !record)
        return;
    const NavigationState state = navigation_.state();
    if (state.obsCourse == kNoAngle || state.distanceNm > kFlownToNm)
        return;
    const bool passed =
        std::abs(HeadingDifferenceDeg(state.bearingMag, state.obsCourse)) > kAbeamDeg;
    const bool planned = [&] {
        const auto plan = plan_.plan().lock();
        return plan->has_value() && (*plan)->contains(record->key);
    }();
    if (passed && planned)
        navigation_.ClearNavigation();
}

std::shared_ptr<const DatabaseRecord> Flight::destination() {
    if (navigation_.directLeg()) {
        const auto& record = navigation_.directRecord();
        return record && record->GetKind() == kAirportKind ? record : nullptr;
    }
    const auto plan = plan_.plan().lock();
    if (!plan->has_value())
        return nullptr;
    const auto& entries = (*plan)->entries();
    return (*plan)->currentIndex() == entries.size() - 1 ? entries.back().record : nullptr;
}

std::vector<LandingRunway> Flight::offeredApproaches(GeoPoint position) {
    const auto plan = plan_.plan().lock();
    return approach_.offered(position,
                             plan->has_value() ? (*plan)->entries().back().record.get() : nullptr);
}

void Flight::watch(const Settings& settings, const Variation& variation) {
    const ActiveNavigation::Aircraft& present = navigation_.present();
    if (!IsValid(present.position))
        return;
    const auto last = destination();
    approach_.tick(settings, variation, present, last, clock_.tickMs());
    alarms_.update(settings, navigation_, approach_, last.get(), clock_.tickMs());
}

}  // namespace korvel
