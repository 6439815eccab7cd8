#include "cockpit/TrafficWatch.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/TrafficTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "nav/alarms/AlarmBoard.h"
#include "receiver/gdl90/TrafficTable.h"

namespace korvel {
namespace {

constexpr std::int64_t kMsPerSecond = 1000;
constexpr double kSecondsPerMinute = 60;
/// Own reports come once a second; an older height is none.
constexpr std::int64_t kOwnHeightMs = 5000;

std::string nameOf(const Gdl90Target& target) {
    return target.callSign.empty() ? addressText(target.address) : target.callSign;
}

std::optional<double> widened(const std::optional<int>& value) {
    return value ? std::optional<double>(*value) : std::nullopt;
}

MovingAircraft moving(const Gdl90Target& target) {
    return {.position = *target.position,
            .trackTrueDeg = target.trackDeg,
            .groundSpeedKt = widened(target.groundSpeedKt),
            .heightFt = widened(target.pressureAltitudeFt),
            .verticalSpeedFpm = widened(target.verticalSpeedFpm)};
}

/// Where it is by now; whether that is near is not looked at yet.
TrafficView viewOf(const TrafficReport& report, const std::optional<MovingAircraft>& own,
                   std::int64_t nowMs) {
    const double seconds =
        static_cast<double>(nowMs - report.arrivedMs) / static_cast<double>(kMsPerSecond);
    MovingAircraft other = moving(report.target);
    other.position = movedOn(other, seconds);
    if (other.heightFt)
        *other.heightFt += other.verticalSpeedFpm.value_or(0) * seconds / kSecondsPerMinute;
    TrafficView view{.name = nameOf(report.target),
                     .position = other.position,
                     .trackTrueDeg = other.trackTrueDeg,
                     .groundSpeedKt = other.groundSpeedKt,
                     .aboveFt = {},
                     .verticalSpeedFpm = report.target.verticalSpeedFpm,
                     .ageSec = static_cast<int>(seconds),
                     .airborne = report.target.airborne,
                     .level = TrafficLevel::Far};
    if (own && own->heightFt && other.heightFt)
        view.aboveFt = RoundToInt(*other.heightFt - *own->heightFt);
    if (own && view.airborne)
        view.level = trafficLevel(*own, other);
    return view;
}

std::optional<MovingAircraft> withHeights(std::optional<MovingAircraft> own,
                                          const TrafficTable& heard, std::int64_t nowMs) {
    if (own && heard.own() && nowMs - heard.own()->arrivedMs < kOwnHeightMs) {
        own->heightFt = widened(heard.own()->target.pressureAltitudeFt);
        own->verticalSpeedFpm = widened(heard.own()->target.verticalSpeedFpm);
    }
    return own;
}

/// To a hundred feet: nobody knows it better.
std::string heightText(int aboveFt, int altUnit) {
    constexpr double kHundred = 100;
    const int rounded = RoundToInt(std::round(aboveFt / kHundred) * kHundred);
    return (rounded < 0 ? "" : "+") + altitudeText(rounded, altUnit);
}

std::string distanceTo(const TrafficView& traffic, GeoPoint own) {
    return distanceTenthsText(DistanceNm(own, traffic.position), DistanceUnit::NauticalMiles);
}

/// Seen from the cockpit, 12 straight ahead; without a track the bearing.
std::string directionText(const TrafficView& traffic, const MovingAircraft& own) {
    constexpr double kDegPerHour = 30;
    constexpr int kHours = 12;
    const double bearing = TrueCourseDeg(own.position, traffic.position);
    if (!own.trackTrueDeg)
        return courseText(bearing) + "°T";
    const double ahead = PositiveMod(bearing - *own.trackTrueDeg, 360);
    const int hour = static_cast<int>(std::lround(ahead / kDegPerHour)) % kHours;
    return formatText(kTrafficTexts.clock, {hour == 0 ? kHours : hour});
}

}  // namespace

void TrafficWatch::addTo(AlarmBoard& board) {
    board.add({.urgency = AlarmUrgency::Warning,
               .condition = [this](bool) { return wordsFor(TrafficLevel::Alert); }});
    board.add({.urgency = AlarmUrgency::Caution,
               .condition = [this](bool) { return wordsFor(TrafficLevel::Caution); }});
}

void TrafficWatch::update(const TrafficTable* heard, const std::optional<MovingAircraft>& own,
                          int altUnit, std::int64_t nowMs) {
    list_.clear();
    altUnit_ = altUnit;
    own_ = heard != nullptr ? withHeights(own, *heard, nowMs) : own;
    if (heard == nullptr)
        return;
    for (const TrafficReport& report : heard->others())
        if (report.target.position && nowMs - report.arrivedMs < kGoneMs)
            list_.push_back(viewOf(report, own_, nowMs));
    std::ranges::stable_sort(list_, [this](const TrafficView& a, const TrafficView& b) {
        if (a.level != b.level || !own_)
            return a.level > b.level;
        return DistanceNm(own_->position, a.position) < DistanceNm(own_->position, b.position);
    });
}

std::shared_ptr<const TrafficList> TrafficWatch::shown(const TrafficChoice& choice) const {
    if (!choice.shown || list_.empty())
        return nullptr;
    auto shown = std::make_shared<TrafficList>(list_);
    std::erase_if(*shown, [&choice](const TrafficView& traffic) {
        return traffic.level < TrafficLevel::Caution && choice.withinFt > 0 && traffic.aboveFt &&
               std::abs(*traffic.aboveFt) > choice.withinFt;
    });
    return shown;
}

std::optional<std::string> TrafficWatch::wordsFor(TrafficLevel level) const {
    const auto found = std::ranges::find(list_, level, &TrafficView::level);
    if (found == list_.end() || !own_)
        return std::nullopt;
    std::string words = directionText(*found, *own_);
    if (found->aboveFt)
        words += ' ' + heightText(*found->aboveFt, altUnit_);
    words += ' ' + distanceTo(*found, own_->position);
    return formatText(level == TrafficLevel::Alert ? kTrafficTexts.alert : kTrafficTexts.caution,
                      {words});
}

std::string trafficMotion(const TrafficView& traffic, int altUnit) {
    std::string words = traffic.aboveFt ? heightText(*traffic.aboveFt, altUnit) + "  " : "";
    if (traffic.groundSpeedKt)
        words += formatInt(RoundToInt(*traffic.groundSpeedKt)) + " kt  ";
    return words + ageText(traffic.ageSec);
}

std::string trafficText(const TrafficView& traffic, const std::optional<GeoPoint>& own,
                        int altUnit) {
    std::string words = traffic.name;
    if (traffic.aboveFt)
        words += "  " + heightText(*traffic.aboveFt, altUnit);
    if (own)
        words += "  " + distanceTo(traffic, *own);
    if (traffic.groundSpeedKt)
        words += "  " + formatInt(RoundToInt(*traffic.groundSpeedKt)) + " kt";
    return words + "  " + ageText(traffic.ageSec);
}

}  // namespace korvel
