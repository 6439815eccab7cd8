#include "nav/approach/ApproachMode.h"

#include <algorithm>
#include <cmath>

#include "geo/Geodesy.h"
#include "geo/Units.h"

namespace korvel {
namespace {

constexpr double kNearestNm = 0.5;  // closer to the threshold it is too late to enter
constexpr double kLinedUpDeg = 45;  // the track may cross the center line by so much
constexpr double kTurnedAwayDeg = 100;
constexpr double kFarBesideNm = 2.5;
constexpr double kBehindNm = 1;  // behind the runway's far end
constexpr double kFarNm = 12;
constexpr double kStoppedKt = 25;
constexpr double kFlyingKt = 40;

double turn(double fromDeg, double toDeg) { return std::abs(std::remainder(toDeg - fromDeg, 360)); }

bool isLinedUp(const LandingRunway& runway, const ApproachFigures& seen, double trackTrueDeg) {
    return seen.toGoNm >= kNearestNm && seen.toGoNm <= ApproachMode::kEnterNm &&
           std::abs(seen.crossTrackNm) <= std::min(ApproachMode::kFullScaleNm, seen.toGoNm) &&
           turn(trackTrueDeg, runway.courseTrueDeg) <= kLinedUpDeg;
}

/// The runway that the aircraft is lined up with best; null for none.
const LandingRunway* linedUpWith(const ApproachMode::Situation& now) {
    const LandingRunway* best = nullptr;
    double least = 0;
    for (const LandingRunway& runway : now.runways) {
        const ApproachFigures seen = approachFigures(runway, now.position);
        if (!isLinedUp(runway, seen, *now.trackTrueDeg))
            continue;
        // Where it lies tells more than where it points at the moment.
        const double off = std::atan2(std::abs(seen.crossTrackNm), seen.toGoNm) * kRadToDeg +
                           turn(*now.trackTrueDeg, runway.courseTrueDeg) / 4;
        if (best == nullptr || off < least) {
            best = &runway;
            least = off;
        }
    }
    return best;
}

}  // namespace

void ApproachMode::end() {
    runway_.reset();
    chosen_ = false;
    established_ = false;
    candidate_.clear();
    sinceMs_.reset();
}

void ApproachMode::choose(const LandingRunway& runway) {
    end();
    runway_ = runway;
    chosen_ = true;
    declined_ = false;
}

void ApproachMode::leave() {
    end();
    declined_ = true;
}

void ApproachMode::update(const Situation& now, std::int64_t nowMs) {
    if (now.destinationKey != destinationKey_) {
        const bool stays = chosen_ && runway_->airportKey == now.destinationKey;
        if (!stays)
            end();
        declined_ = false;
        destinationKey_ = now.destinationKey;
    }
    if (!runway_)
        return enterByItself(now, nowMs);
    const ApproachFigures seen = approachFigures(*runway_, now.position);
    established_ = established_ || std::abs(seen.crossTrackNm) < kFullScaleNm;
    if (!chosen_)
        leaveByItself(now, seen, nowMs);
}

void ApproachMode::enterByItself(const Situation& now, std::int64_t nowMs) {
    const bool far = std::ranges::all_of(now.runways, [&](const LandingRunway& runway) {
        return DistanceNm(now.position, runway.threshold) > kFarNm;
    });
    declined_ = declined_ && !far;
    const bool possible = now.automatic && !declined_ && now.trackTrueDeg &&
                          now.groundSpeedKt.value_or(0) >= kFlyingKt;
    const LandingRunway* runway = possible ? linedUpWith(now) : nullptr;
    if (runway == nullptr) {
        candidate_.clear();
        return;
    }
    if (candidate_ != runway->id) {
        candidate_ = runway->id;
        sinceMs_ = nowMs;
    }
    if (nowMs - *sinceMs_ >= kEnterMs) {
        const LandingRunway entered = *runway;
        end();
        runway_ = entered;
        established_ = true;
    }
}

void ApproachMode::leaveByItself(const Situation& now, const ApproachFigures& seen,
                                 std::int64_t nowMs) {
    if (!now.automatic)
        return end();
    const double lengthNm = DistanceNm(runway_->threshold, runway_->farEnd);
    const bool stopped = now.groundSpeedKt && *now.groundSpeedKt < kStoppedKt;
    const bool away =
        std::abs(seen.crossTrackNm) > kFarBesideNm || seen.distanceNm > kFarNm ||
        seen.toGoNm < -(lengthNm + kBehindNm) ||
        (now.trackTrueDeg && turn(*now.trackTrueDeg, runway_->courseTrueDeg) > kTurnedAwayDeg);
    if (!stopped && !away) {
        sinceMs_.reset();
        return;
    }
    if (!sinceMs_)
        sinceMs_ = nowMs;
    if (nowMs - *sinceMs_ >= kLeaveMs)
        end();
}

}  // namespace korvel
