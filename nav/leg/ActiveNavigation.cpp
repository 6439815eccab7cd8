#include "nav/leg/ActiveNavigation.h"

#include <cmath>
#include <utility>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "geo/OnEarth.h"
#include "geo/Units.h"
#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlaceLookup.h"
#include "nav/track/TrackRecorder.h"

namespace korvel {
namespace {

constexpr double kTakeOverNm = 1.0;
/// The track runs on over the short while in which a turn or a mountain hides the satellites.
constexpr std::int64_t kTrackPatienceMs = 30000;
/// A leg onto a course begins this far out: 20 NM, in radians.
constexpr double kCourseLegRad = 0.005817764173314432;

/// The cross-track distance in nautical miles, positive left of the leg.
double crossTrack(const NavigationState& state, GeoPoint present) {
    const auto& [startLat, startLon] = state.legStart;
    const double along =
        TrueCourse(startLat, startLon, state.activeWaypoint.lat, state.activeWaypoint.lon);
    const double seen = TrueCourse(startLat, startLon, present.lat, present.lon);
    const double flown = GreatCircleDistance(startLat, startLon, present.lat, present.lon);
    return std::asin(std::sin(along - seen) * std::sin(flown)) * kNmPerRadian;
}

void clearValues(NavigationState& state) {
    state.bearingMag = kNoAngle;
    state.distanceNm = kNoDistanceNm;
    state.crossTrackNm = kNoDistanceNm;
    state.offCourseDeg = kNoAngle;
}

void clearPath(NavigationState& state) {
    state.pathTargetAltFt = kNoAltitudeFt;
    state.pathAltFt = kNoAltitudeFt;
    state.pathAngle = 0.0;
    state.pathEnd = {};
}

/// Sets up the descent path from the present altitude; false when there is nothing to descend from.
bool beginPath(NavigationState& state, std::optional<std::int32_t> presentFt,
               const FlightPlan::AltitudeConstraint& constraint) {
    const double distanceFt = constraint.distanceNm * kFeetPerNm;
    if (!presentFt || !(distanceFt > 0.0))
        return false;
    state.pathTargetAltFt = constraint.altitudeFt;
    state.pathEnd = constraint.point;
    state.pathAngle =
        std::atan2((constraint.altitudeFt - static_cast<double>(*presentFt)) / distanceFt, 1.0);
    return true;
}

GeoPoint beyond(GeoPoint point, double courseTrueDeg) {
    GeoPoint start;
    PointAtRadialDistance(point.lat, point.lon, kCourseLegRad, courseTrueDeg * kDegToRad, start.lat,
                          start.lon);
    return start;
}

}  // namespace

void ActiveNavigation::lookAround(const Aircraft& received) {
    present_ = simulated() ? parts_.simulator.aircraft() : received;
    if (simulated() && present_.altitudeFt)
        *present_.altitudeFt += options_.altitudeOffsetFt;
}

void ActiveNavigation::NavUpdate(const Aircraft& received) {
    Simulator& simulator = parts_.simulator;
    if (simulated() != std::exchange(wasSimulated_, simulated())) {
        parts_.track.breakHere();
        lastAltitudeFt_ = 0;
    }
    lookAround(received);
    takeUpPath();
    if (!suspended_)
        UpdateActiveLeg();
    const std::int64_t now = parts_.clock.tickMs();
    leadSimulator();
    simulator.step(now, options_.variation);
    lookAround(received);
    updateValues();
    if (IsValid(present_.position))
        simulator.updateTrack(options_.variation);
    else
        simulator.losePosition();
    simulator.steer(now, state_.lock()->bearingMag);
    lookAround(received);
    recordTrack(now);
    // What the simulator or a replay flies is no flight time.
    const bool real = !simulated() && options_.logging && IsValid(present_.position);
    parts_.log.step(options_.log, real ? present_.groundSpeedKt : std::nullopt);
}

/// To the altitude that comes next, which the plan means as the altimeter shows it.
void ActiveNavigation::leadSimulator() {
    if (!simulated())
        return;
    const auto state = state_.lock();
    std::optional<std::int32_t> wanted;
    if (state->pathTargetAltFt != kNoAltitudeFt)
        wanted = state->pathTargetAltFt - options_.altitudeOffsetFt;
    parts_.simulator.wantAltitude(wanted, state->pathDistanceNm);
}

void ActiveNavigation::updateValues() {
    const GeoPoint present = present_.position;
    const auto state = state_.lock();
    if (!IsValid(present) || !IsValid(state->legStart)) {
        clearValues(*state);
        return;
    }
    const GeoPoint waypoint = state->activeWaypoint;
    state->bearingMag = options_.variation.TrueToMagnetic(TrueCourseDeg(present, waypoint));
    state->distanceNm = DistanceNm(present, waypoint);
    double across = crossTrack(*state, present);
    if (std::abs(across) > state->distanceNm)
        across = std::copysign(state->distanceNm, across);
    state->crossTrackNm = state->obsCourse != kNoAngle ? -across : across;
    if (state->distanceNm != 0.0)
        state->offCourseDeg = std::asin(state->crossTrackNm / state->distanceNm) * kRadToDeg;
}

void ActiveNavigation::recordTrack(std::int64_t nowMs) {
    const bool wanted = records();
    if (!wanted || nowMs - lastPositionMs_ > kTrackPatienceMs)
        parts_.track.breakHere();
    if (!IsValid(present_.position))
        return;
    lastPositionMs_ = nowMs;
    lastAltitudeFt_ = present_.altitudeFt.value_or(lastAltitudeFt_);
    if (!wanted)
        return;
    const double trackMag = present_.trackMag == kNoAngle ? 0.0 : present_.trackMag;
    parts_.track.offer(present_.position, RoundToInt(present_.groundSpeedKt.value_or(0.0)),
                       RoundToInt(trackMag), lastAltitudeFt_);
}

/// The simulated aircraft goes where it is headed, also before its first step has shown a track: a
/// plan that searches in that tick must not take what lies behind.
double ActiveNavigation::trackMag() const {
    const Simulator& simulator = parts_.simulator;
    const bool isHeaded = simulated() && simulator.headingMag() != Simulator::kNoHeading;
    return present_.trackMag == kNoAngle && isHeaded ? simulator.headingMag() : present_.trackMag;
}

bool ActiveNavigation::planTakesOver() {
    {
        const auto state = state_.lock();
        if (state->pathTargetAltFt != kNoAltitudeFt && IsValid(state->pathEnd))
            state->pathDistanceNm = DistanceNm(present_.position, state->pathEnd);
        if (state->obsCourse != kNoAngle || !directRecord_ ||
            DistanceNm(present_.position, state->activeWaypoint) > kTakeOverNm)
            return false;
    }
    const auto plan = parts_.plan.lock();
    return plan->has_value() && (*plan)->contains(directRecord_->key);
}

std::optional<ActiveNavigation::Choice> ActiveNavigation::choose() {
    const auto plan = parts_.plan.lock();
    if (!plan->has_value())
        return std::nullopt;
    const auto leg = (*plan)->ChooseActiveLeg(
        {.position = present_.position, .trackMag = trackMag(), .variation = options_.variation});
    if (!leg)
        return std::nullopt;
    return Choice{.record = leg->waypoint->record,
                  .start = leg->start,
                  .constraint = (*plan)->constraint(present_.position)};
}

void ActiveNavigation::UpdateActiveLeg() {
    if (!IsValid(present_.position) || (direct_ && !planTakesOver()))
        return;
    direct_ = false;
    directRecord_.reset();
    if (const auto choice = choose())
        flyTo(*choice);
    else
        ClearNavigation();
}

void ActiveNavigation::flyTo(const Choice& choice) {
    const auto state = state_.lock();
    const std::int32_t formerPathFt = state->pathAltFt;
    const bool isNew = state->activeKey != choice.record->key;
    if (isNew) {
        state->activeKey = choice.record->key;
        state->activeName = choice.record->GetName();
    }
    state->obsCourse = kNoAngle;
    if (choice.start)
        state->legStart = *choice.start;
    else if (!IsValid(state->legStart))
        state->legStart = present_.position;
    updatePath(*state, choice);
    state->activeWaypoint = choice.record->position;
    state->desiredTrack = TrueCourseDeg(state->legStart, state->activeWaypoint);
    if (isNew || state->pathAltFt != formerPathFt)
        announce(*state);
}

void ActiveNavigation::takeUpPath() {
    if (!pathRestarts_ || !present_.altitudeFt)
        return;
    pathRestarts_ = false;
    const auto state = state_.lock();
    if (state->pathTargetAltFt != kNoAltitudeFt)
        beginPath(*state, present_.altitudeFt,
                  {.altitudeFt = state->pathTargetAltFt,
                   .point = state->pathEnd,
                   .distanceNm = state->pathDistanceNm});
}

std::int32_t ActiveNavigation::altitudeAt(const NavigationState& state, GeoPoint waypoint) const {
    if (SamePoint(waypoint, state.pathEnd))
        return state.pathTargetAltFt;
    if (!present_.altitudeFt)
        return kNoAltitudeFt;
    const double distanceFt = DistanceNm(present_.position, waypoint) * kFeetPerNm;
    const double feet = std::tan(state.pathAngle) * distanceFt + *present_.altitudeFt;
    constexpr double kNoSuchAltitudeFt = 1e9;
    return std::abs(feet) < kNoSuchAltitudeFt ? static_cast<std::int32_t>(feet) : kNoAltitudeFt;
}

void ActiveNavigation::updatePath(NavigationState& state, const Choice& choice) const {
    const auto& constraint = choice.constraint;
    state.pathDistanceNm = constraint ? constraint->distanceNm : kNoDistanceNm;
    const bool same = constraint && constraint->altitudeFt == state.pathTargetAltFt &&
                      SamePoint(constraint->point, state.pathEnd);
    if (!same) {
        clearPath(state);
        if (!constraint || !beginPath(state, present_.altitudeFt, *constraint))
            return;
    }
    state.pathAltFt = altitudeAt(state, choice.record->position);
}

void ActiveNavigation::announce(const NavigationState& state) {
    ++announcement_.number;
    announcement_.name = state.activeName;
    announcement_.altitudeFt = state.pathAltFt;
}

void ActiveNavigation::ClearNavigation() {
    direct_ = false;
    directRecord_.reset();
    const auto state = state_.lock();
    state->activeKey.clear();
    state->activeName.clear();
    state->activeWaypoint = {};
    state->legStart = {};
    state->desiredTrack = kNoAngle;
    state->obsCourse = kNoAngle;
    state->pathDistanceNm = kNoDistanceNm;
    clearValues(*state);
    clearPath(*state);
}

void ActiveNavigation::flyAgain(const Flown& flown) {
    direct_ = flown.direct;
    directRecord_ = flown.record;
    *state_.lock() = flown.state;
    updateValues();
}

void ActiveNavigation::planChanged() { ClearNavigation(); }

std::string ActiveNavigation::DirectTo(std::string_view identifier, std::string_view obsText,
                                       std::int32_t altitudeFt, std::optional<GeoPoint> where) {
    double course = kNoAngle;
    if (!obsText.empty()) {
        const auto degrees = scanInt(obsText);
        if (!degrees || *degrees < 0 || *degrees > 360)
            return std::string(text(kFlightTexts.invalidObs));
        course = *degrees;
    }
    const GeoPoint present = present_.position;
    const std::optional<GeoPoint> near = IsValid(present) ? std::optional(present) : std::nullopt;
    auto record = PlaceLookup(parts_.database, parts_.fixes, where ? where : near).peek(identifier);
    if (!record)
        return std::string(text(kFlightTexts.notFound));
    if (const auto plan = parts_.plan.lock(); plan->has_value())
        (*plan)->moveTo(record->key);
    if (!near)
        return std::string(text(kStatusTexts.noGpsSignal));
    ClearNavigation();
    const auto state = state_.lock();
    state->activeKey = record->key;
    state->activeName = record->GetName();
    state->activeWaypoint = record->position;
    state->obsCourse = course;
    if (course != kNoAngle) {
        state->desiredTrack = options_.variation.MagneticToTrue(course);
        state->legStart = beyond(record->position, state->desiredTrack);
    } else {
        state->legStart = present;
        state->desiredTrack = TrueCourseDeg(present, record->position);
    }
    if (altitudeFt != kNoAltitudeFt) {
        const FlightPlan::AltitudeConstraint constraint{
            .altitudeFt = altitudeFt,
            .point = record->position,
            .distanceNm = DistanceNm(present, record->position)};
        if (beginPath(*state, present_.altitudeFt, constraint)) {
            state->pathDistanceNm = constraint.distanceNm;
            state->pathAltFt = altitudeFt;
        }
    }
    announce(*state);
    directRecord_ = std::move(record);
    direct_ = true;
    return formatText(kFlightTexts.directTo, {std::string_view(state->activeName)});
}

std::string ActiveNavigation::GoToWithCourse(GeoPoint point, double courseMag,
                                             std::string_view name) {
    if (!IsOnEarth(point))
        return std::string(text(kFlightTexts.notFound));
    if (!(courseMag >= 0.0 && courseMag <= 360.0))
        return std::string(text(kFlightTexts.invalidObs));
    ClearNavigation();
    const auto state = state_.lock();
    state->activeName = name;
    state->desiredTrack = options_.variation.MagneticToTrue(courseMag);
    state->legStart = beyond(point, PositiveMod(state->desiredTrack + 180.0, 360.0));
    state->activeWaypoint = point;
    announce(*state);
    direct_ = true;
    return {};
}

}  // namespace korvel
