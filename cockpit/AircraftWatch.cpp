#include "cockpit/AircraftWatch.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/TextNumbers.h"
#include "cockpit/CockpitData.h"
#include "config/ProfileFile.h"
#include "config/Text.h"
#include "config/texts/AircraftTexts.h"
#include "geo/Geodesy.h"
#include "nav/aircraft/PlannedTimes.h"
#include "nav/alarms/AlarmBoard.h"
#include "platform/Clock.h"

namespace korvel {
namespace {

constexpr std::string_view kSection = "Aircraft";
constexpr std::string_view kFuelLeft = "FuelLeft";
constexpr std::string_view kFuelKept = "FuelKept";  // when that was, seconds since 1970
constexpr std::string_view kFuelEntered = "FuelEntered";
constexpr std::string_view kFlies = "FuelFlies";

constexpr std::int64_t kKeepSec = 60;
constexpr std::int64_t kForgottenSec = 43'200;  // 12 h: another day, another fuel
constexpr double kSecondsPerHour = 3600;
constexpr int kSecondsPerMinute = 60;

constexpr double kToldAheadSec = 120;
constexpr double kToldNoMoreSec = 180;
constexpr int kLeastDescentFt = 300;  // less needs no telling
constexpr std::int64_t kNoticeMs = 10'000;
/// So long the pilot is reminded of the other tank, if it is not acknowledged.
constexpr std::int64_t kTankReminderMs = 300'000;

std::optional<double> storedNumber(ProfileFile& profile, std::string_view key) {
    const std::string stored = profile.getString(kSection, key, "");
    std::string_view words = stored;
    const auto value = scanDouble(words);
    return value && std::isfinite(*value) && *value >= 0 ? value : std::nullopt;
}

}  // namespace

AircraftWatch::AircraftWatch(ProfileFile& profile, const Clock& clock, AlarmBoard& board)
    : profile_(profile), clock_(clock), aircraft_(loadAircraft(profile)) {
    takeUpFuel();
    board.add({.urgency = AlarmUrgency::Caution,
               .condition = [this](bool /*holds*/) -> std::optional<std::string> {
                   const auto left = tank_.left();
                   if (!aircraft_ || !left || !flies_ || *left > aircraft_->reserveFuel())
                       return std::nullopt;
                   return std::string(text(kAircraftTexts.alarmReserve));
               }});
    board.add({.urgency = AlarmUrgency::Caution,
               .condition = [this](bool /*holds*/) -> std::optional<std::string> {
                   return isTankDue() ? std::optional(std::string(text(kAircraftTexts.alarmTank)))
                                      : std::nullopt;
               }});
    board.add({.urgency = AlarmUrgency::Notice,
               .lastsMs = kNoticeMs,
               .condition = [this](bool holds) -> std::optional<std::string> {
                   const auto minutes = minutesToDescent(holds);
                   return minutes
                              ? std::optional(formatText(kAircraftTexts.topOfDescent, {*minutes}))
                              : std::nullopt;
               }});
}

/// What was burnt since it was noted counts, if the aircraft flew then.
void AircraftWatch::takeUpFuel() {
    const auto left = storedNumber(profile_, kFuelLeft);
    const auto kept = storedNumber(profile_, kFuelKept);
    const auto entered = storedNumber(profile_, kFuelEntered);
    if (!aircraft_ || !left || !kept || !entered)
        return;
    const double since = static_cast<double>(clock_.unixSeconds()) - *kept;
    if (since < 0 || since >= kForgottenSec || *entered > *kept ||
        *left > std::ceil(aircraft_->usableFuel))
        return;
    const bool flew = profile_.getInt(kSection, kFlies, 0) != 0;
    const double burnt = flew ? aircraft_->burnPerHour * since / kSecondsPerHour : 0;
    tank_.fill(std::max(0.0, *left - burnt));
    fuelEnteredUnix_ = static_cast<std::int64_t>(*entered);
}

void AircraftWatch::keepFuel() {
    fuelKeptUnix_ = clock_.unixSeconds();
    const auto& left = now_.simulated ? realFuel_ : tank_.left();
    profile_.setString(kSection, kFuelLeft, left ? formatFixed(*left, 2) : "", true);
    profile_.setString(kSection, kFuelKept, formatInt(fuelKeptUnix_), true);
    profile_.setString(kSection, kFuelEntered, formatInt(fuelEnteredUnix_), true);
    profile_.setInt(kSection, kFlies, flies_ && !now_.simulated ? 1 : 0, true);
}

void AircraftWatch::update(const Situation& now) {
    if (now.simulated != now_.simulated) {
        tank_.step(false, 0, now.flightMs);
        if (now.simulated)
            realFuel_ = tank_.left();
        else
            tank_.fill(realFuel_);
        forgetMotion();
    }
    const std::int64_t passedMs = now.flightMs - now_.flightMs;
    now_ = now;
    const bool flew = flies_;
    if (now.groundSpeedKt)
        flies_ = *now.groundSpeedKt >= (flies_ ? now.flyingToKt : now.flyingFromKt);
    flownMs_ = flies_ && flew ? flownMs_ + passedMs : 0;
    tank_.step(flies_, aircraft_ ? aircraft_->burnPerHour : 0, now.flightMs);
    if (flies_ && now.trackTrueDeg && now.groundSpeedKt)
        estimator_.add(now.flightMs, *now.trackTrueDeg, *now.groundSpeedKt);
    const bool isDue = flies_ && clock_.unixSeconds() - fuelKeptUnix_ >= kKeepSec;
    if (tank_.left() && !now.simulated && (flew != flies_ || isDue))
        keepFuel();
}

void AircraftWatch::forgetMotion() {
    estimator_.forget();
    flies_ = false;
    toldDescentTo_.reset();
}

bool AircraftWatch::isTankDue() const {
    constexpr std::int64_t kMsPerMinute = 60'000;
    if (!aircraft_ || !flies_ || aircraft_->tankMinutes < 1)
        return false;
    const std::int64_t every = std::llround(aircraft_->tankMinutes) * kMsPerMinute;
    return flownMs_ >= every && flownMs_ % every < std::min(kTankReminderMs, every / 2);
}

std::optional<double> AircraftWatch::descentInSec() const {
    if (!aircraft_ || !flies_ || !now_.groundSpeedKt || !now_.altitudeFt || !now_.pathTargetFt ||
        !now_.pathNm || *now_.altitudeFt - *now_.pathTargetFt < kLeastDescentFt)
        return std::nullopt;
    return secondsToDescent(*aircraft_, *now_.altitudeFt - *now_.pathTargetFt, *now_.pathNm,
                            *now_.groundSpeedKt);
}

/// Once for each end of a path.
std::optional<int> AircraftWatch::minutesToDescent(bool holds) {
    const auto seconds = descentInSec();
    if (!seconds || *seconds <= 0 || *seconds > (holds ? kToldNoMoreSec : kToldAheadSec))
        return std::nullopt;
    if (!holds && toldDescentTo_ && SamePoint(*toldDescentTo_, now_.pathEnd))
        return std::nullopt;
    toldDescentTo_ = now_.pathEnd;
    return static_cast<int>(std::ceil(*seconds / kSecondsPerMinute));
}

void AircraftWatch::fill(CockpitData& data) const {
    constexpr double kTenths = 10;
    const std::int64_t now = clock_.unixSeconds();
    data.aircraft = aircraft_;
    if (const auto left = tank_.left(); aircraft_ && left) {
        data.fuelLeft = std::round(*left * kTenths) / kTenths;
        data.fuelAgeMin = static_cast<int>((now - fuelEnteredUnix_) / kSecondsPerMinute);
    }
    if (entered_)
        data.wind =
            WindView{.wind = *entered_,
                     .entered = true,
                     .ageMin = static_cast<int>((now - windEnteredUnix_) / kSecondsPerMinute)};
    else if (const auto estimate = estimator_.estimate(now_.flightMs))
        data.wind = WindView{.wind = estimate->wind,
                             .entered = false,
                             .ageMin = static_cast<int>((now_.flightMs - estimate->madeMs) / 1000 /
                                                        kSecondsPerMinute)};
}

void AircraftWatch::choose(const std::optional<AircraftProfile>& aircraft) {
    // Figures of another unit mean something else.
    if (!aircraft || (aircraft_ && aircraft_->fuelUnit != aircraft->fuelUnit))
        enterFuel(std::nullopt);
    aircraft_ = aircraft;
    storeAircraft(profile_, aircraft);
}

void AircraftWatch::enterFuel(std::optional<double> amount) {
    tank_.fill(amount);
    realFuel_ = amount;
    fuelEnteredUnix_ = clock_.unixSeconds();
    keepFuel();
}

void AircraftWatch::enterWind(const std::optional<Wind>& wind) {
    entered_ = wind;
    windEnteredUnix_ = clock_.unixSeconds();
}

}  // namespace korvel
