#include "nav/plan/FlightPlan.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr double kReachedNm = 1.0;
constexpr double kTurnAnticipationNm = 3.0;
constexpr std::int32_t kWorstScore = std::numeric_limits<std::int32_t>::max();

int turnTo(const PlanWaypoint& waypoint, const FlightPlan::Motion& motion) {
    const double bearingTrue = TrueCourseDeg(motion.position, waypoint.position());
    return HeadingDifferenceDeg(motion.trackMag, motion.variation.TrueToMagnetic(bearingTrue));
}

}  // namespace

FlightPlan::FlightPlan(std::vector<PlanWaypoint> entries)
    : entries_(std::move(entries)), progress_(entries_.size()) {}

double FlightPlan::totalNm() const {
    double total = 0.0;
    for (std::size_t i = 1; i < entries_.size(); ++i)
        total += DistanceNm(entries_[i - 1].position(), entries_[i].position());
    return total;
}

bool FlightPlan::contains(std::string_view recordKey) const {
    return std::ranges::any_of(
        entries_,
        [recordKey](const PlanWaypoint& entry) { return entry.record->key == recordKey; });
}

void FlightPlan::searchSoon() {
    progress_.assign(entries_.size(), {});
    choicesUntilSearch_ = 1;
    current_.reset();
    currentKey_.clear();
    reachedCount_ = 0;
}

void FlightPlan::reverse() {
    std::ranges::reverse(entries_);
    searchSoon();
}

void FlightPlan::activate() { searchSoon(); }

bool FlightPlan::moveTo(std::string_view recordKey) {
    const auto hasKey = [recordKey](const PlanWaypoint& entry) {
        return entry.record->key == recordKey;
    };
    const auto from = entries_.begin() + static_cast<std::ptrdiff_t>(current_.value_or(0));
    auto found = std::find_if(from, entries_.end(), hasKey);
    if (found == entries_.end()) {
        found = std::find_if(entries_.begin(), from, hasKey);
        if (found == from)
            return false;
    }
    moveToEntry(static_cast<std::size_t>(found - entries_.begin()));
    return true;
}

void FlightPlan::moveToEntry(std::size_t index) {
    // Also what had been passed: the pilot goes back to it.
    std::fill(progress_.begin() + static_cast<std::ptrdiff_t>(index), progress_.end(),
              Progress{.state = State::Ahead});
    flyFrom(index);
    choicesUntilSearch_ = 0;
    legTo(index);
}

std::optional<std::size_t> FlightPlan::find(std::string_view recordKey, std::size_t index) const {
    std::optional<std::size_t> nearest;
    const auto away = [index](std::size_t i) { return i < index ? index - i : i - index; };
    for (std::size_t i = 0; i < entries_.size(); ++i)
        if (entries_[i].record->key == recordKey && (!nearest || away(i) < away(*nearest)))
            nearest = i;
    return nearest;
}

FlightPlan::Progress FlightPlan::progressOf(std::string_view recordKey) const {
    for (std::size_t i = 0; i < entries_.size(); ++i)
        if (progress_[i].state == State::Passed && entries_[i].record->key == recordKey)
            return progress_[i];
    return {.state = State::Skipped};
}

std::vector<bool> FlightPlan::flown() const {
    std::vector<bool> flown;
    flown.reserve(progress_.size());
    for (const Progress& progress : progress_)
        flown.push_back(progress.flown);
    return flown;
}

bool FlightPlan::goOnFrom(const FlightPlan& former) {
    std::optional<std::size_t> next;
    for (std::size_t i = former.current_.value_or(former.entries_.size());
         !next && i < former.entries_.size(); ++i)
        next = find(former.entries_[i].record->key, i);
    if (!next)
        return false;
    // What the pilot puts before it is to be flown first.
    while (*next > 0 && !former.contains(entries_[*next - 1].record->key))
        --*next;
    for (std::size_t i = 0; i < *next; ++i)
        progress_[i] = former.progressOf(entries_[i].record->key);
    moveToEntry(*next);
    return true;
}

FlightPlan::Sight FlightPlan::sight(std::size_t index, const Motion& motion) const {
    const PlanWaypoint& entry = entries_[index];
    return {.distanceNm = DistanceNm(motion.position, entry.position()),
            .turnDeg = motion.trackMag == kNoAngle ? 0 : turnTo(entry, motion)};
}

bool FlightPlan::isReached(std::size_t index, const Sight& sight, const Motion& motion) const {
    if (sight.distanceNm <= kReachedNm)
        return true;
    return sight.distanceNm < kTurnAnticipationNm && std::abs(sight.turnDeg) > 100 &&
           index + 1 < entries_.size() && std::abs(turnTo(entries_[index + 1], motion)) < 80;
}

void FlightPlan::flyFrom(std::size_t index) {
    for (std::size_t i = 0; i < progress_.size(); ++i) {
        State& state = progress_[i].state;
        if (state != State::Passed)
            state = i < index ? State::Skipped : State::Ahead;
    }
}

std::optional<std::size_t> FlightPlan::visit(const Motion& motion, bool searching) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        Progress& progress = progress_[i];
        progress.score = kWorstScore;
        const bool examined = searching || progress.state == State::Ahead;
        if (progress.state == State::Passed || !examined)
            continue;
        const Sight seen = sight(i, motion);
        if (isReached(i, seen, motion)) {
            std::for_each_n(progress_.begin(), i + 1,
                            [](Progress& before) { before.state = State::Passed; });
            reachedCount_ += searching ? 0 : 1;
            progress.flown = true;
            continue;
        }
        if (!searching)
            return i;
        const int turn = std::abs(seen.turnDeg);
        progress.score = RoundToInt(std::pow(turn, 1.5) + seen.distanceNm);
        if (turn <= RoundToInt(std::atan(1.0 / seen.distanceNm) * kRadToDeg)) {
            flyFrom(i);
            return i;
        }
        progress.state = State::Skipped;
    }
    return std::nullopt;
}

std::size_t FlightPlan::bestScored() const {
    std::size_t best = entries_.size() - 1;
    std::int32_t lowest = kWorstScore;
    for (std::size_t i = 0; i < progress_.size(); ++i) {
        if (progress_[i].state != State::Passed && progress_[i].score < lowest) {
            lowest = progress_[i].score;
            best = i;
        }
    }
    return best;
}

FlightPlan::Leg FlightPlan::legTo(std::size_t index) {
    current_ = index;
    const PlanWaypoint& waypoint = entries_[index];
    if (currentKey_ != waypoint.record->key)
        currentKey_ = waypoint.record->key;
    Leg leg{.waypoint = &waypoint, .start = std::nullopt};
    for (std::size_t i = index; i-- > 0;) {
        if (progress_[i].state == State::Passed) {
            leg.start = entries_[i].position();
            break;
        }
    }
    return leg;
}

std::optional<FlightPlan::Leg> FlightPlan::ChooseActiveLeg(const Motion& motion) {
    if (entries_.empty())
        return std::nullopt;
    const bool searching = choicesUntilSearch_ > 0 && --choicesUntilSearch_ == 0;
    if (const auto chosen = visit(motion, searching))
        return legTo(*chosen);
    if (searching) {
        const std::size_t best = bestScored();
        flyFrom(best);
        return legTo(best);
    }
    return legTo(entries_.size() - 1);
}

std::optional<FlightPlan::AltitudeConstraint> FlightPlan::constraint(GeoPoint present) const {
    GeoPoint from = present;
    double distanceNm = 0.0;
    for (std::size_t i = current_.value_or(entries_.size()); i < entries_.size(); ++i) {
        const PlanWaypoint& entry = entries_[i];
        distanceNm += DistanceNm(from, entry.position());
        if (entry.altitudeFt != kNoAltitudeFt) {
            return AltitudeConstraint{.altitudeFt = entry.altitudeFt,
                                      .point = entry.position(),
                                      .distanceNm = distanceNm};
        }
        from = entry.position();
    }
    return std::nullopt;
}

}  // namespace korvel
