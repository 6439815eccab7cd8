#include "cockpit/AirspaceWatch.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "config/texts/GroundTexts.h"
#include "geo/GeoText.h"
#include "geo/Geodesy.h"
#include "geo/Longitude.h"
#include "ground/airspace/AirspaceSet.h"
#include "nav/alarms/AlarmBoard.h"
#include "nav/traffic/TrafficConflict.h"

namespace korvel {
namespace {

constexpr int kMarginFt = 500;  ///< who passes floor or ceiling as near as this is told
constexpr int kStaysFt = 200;   ///< who was in it and is no farther from it is told nothing anew
constexpr std::int64_t kDelayMs = 2000;
/// At its edge an airspace comes and goes with the fix's error: who was in it stays so long.
constexpr std::int64_t kStaysMs = 5000;
constexpr double kSlowestKt = 20;
constexpr int kNearStepSec = 3;
constexpr int kFarStepSec = 10;

/// Where the aircraft will be.
struct Sample {
    int seconds = 0;
    GeoPoint point;
    std::optional<int> altitudeFt{};
};

std::vector<Sample> pathOf(const AirspaceWatch::Situation& now) {
    std::vector<Sample> path;
    if (!now.trackTrueDeg || !now.groundSpeedKt || *now.groundSpeedKt < kSlowestKt)
        return path;
    const MovingAircraft own{.position = *now.position,
                             .trackTrueDeg = now.trackTrueDeg,
                             .groundSpeedKt = now.groundSpeedKt};
    for (int seconds = kNearStepSec; seconds <= AirspaceWatch::kListSec;
         seconds += seconds < AirspaceWatch::kAlarmSec ? kNearStepSec : kFarStepSec) {
        Sample sample{.seconds = seconds, .point = movedOn(own, seconds)};
        // Nobody climbs or descends for five minutes as now.
        const double minutes = std::min(seconds, AirspaceWatch::kAlarmSec) / 60.0;
        if (now.altitudeFt)
            sample.altitudeFt =
                *now.altitudeFt + RoundToInt(now.verticalSpeedFpm.value_or(0) * minutes);
        path.push_back(sample);
    }
    return path;
}

/// All that the path may touch, and some more.
AirspaceBox around(const AirspaceWatch::Situation& now) {
    constexpr double kLeastNm = 1;
    const double reach =
        std::max(now.groundSpeedKt.value_or(0) * AirspaceWatch::kListSec / 3600.0, kLeastNm) / 60;
    const double lat = now.position->lat * kRadToDeg;
    const double lon = now.position->lon * kRadToDeg;
    const double across = reach / std::max(std::cos((std::abs(lat) + reach) * kDegToRad), 1e-3);
    if (across >= 180)
        return {lat - reach, -180, lat + reach, 180};
    return {lat - reach, wrappedLongitudeDeg(lon - across), lat + reach,
            wrappedLongitudeDeg(lon + across)};
}

/// How far a limit is away that is not reached; 0 between floor and ceiling.
int heightTo(const Airspace& airspace, int altitudeFt, std::optional<int> groundFt) {
    return std::max(
        {airspace.floorFt(groundFt) - altitudeFt, altitudeFt - airspace.ceilingFt(groundFt), 0});
}

const Sample* firstIn(const Airspace& airspace, const std::vector<Sample>& path, int marginFt,
                      std::optional<int> groundFt) {
    const auto entry = std::ranges::find_if(path, [&](const Sample& sample) {
        return (!sample.altitudeFt ||
                heightTo(airspace, *sample.altitudeFt, groundFt) <= marginFt) &&
               airspace.contains(sample.point);
    });
    return entry == path.end() ? nullptr : &*entry;
}

void setAway(AirspaceView& view, const AirspaceWatch::Situation& now, const Sample& entry) {
    view.seconds = entry.seconds;
    view.distanceNm = DistanceNm(*now.position, entry.point);
}

void setAside(AirspaceView& view, const Airspace& airspace, int altitudeFt,
              std::optional<int> groundFt) {
    view.relation =
        altitudeFt < airspace.floorFt(groundFt) ? AirspaceRelation::Above : AirspaceRelation::Below;
    view.heightFt = heightTo(airspace, altitudeFt, groundFt);
}

/// Nothing when it lies neither here nor ahead.
std::optional<AirspaceView> viewOf(const Airspace& airspace, const AirspaceWatch::Situation& now,
                                   const std::vector<Sample>& path) {
    AirspaceView view{.name = airspace.name,
                      .airspaceClass = airspace.airspaceClass,
                      .limits = limitWords(airspace),
                      .frequency = airspace.frequency,
                      .kind = kindOf(airspace)};
    const bool here = airspace.contains(*now.position);
    if (here && (!now.altitudeFt || airspace.reaches(*now.altitudeFt, now.groundFt)))
        return view;
    if (const Sample* const entry = firstIn(airspace, path, 0, now.groundFt)) {
        view.relation = AirspaceRelation::Ahead;
        setAway(view, now, *entry);
        return view;
    }
    if (here) {
        setAside(view, airspace, *now.altitudeFt, now.groundFt);
        return view;
    }
    const Sample* const entry = firstIn(airspace, path, kMarginFt, now.groundFt);
    if (entry == nullptr)
        return std::nullopt;
    setAside(view, airspace, *entry->altitudeFt, now.groundFt);
    setAway(view, now, *entry);
    return view;
}

/// Whether it is entered, or passed closely, so soon that the pilot is to be told.
bool isNear(const AirspaceView& view) {
    if (view.relation == AirspaceRelation::Inside || view.seconds > AirspaceWatch::kAlarmSec)
        return false;
    return view.relation == AirspaceRelation::Ahead || view.heightFt <= kMarginFt;
}

std::string aheadWords(const AirspaceView& view, const std::string& words, int altUnit) {
    if (view.relation == AirspaceRelation::Ahead)
        return formatText(kGroundTexts.airspaceAhead, {*view.seconds, words});
    constexpr int kStepFt = 100;  // nobody knows it better, and words that change disturb
    const int height = (view.heightFt.value_or(0) + kStepFt / 2) / kStepFt * kStepFt;
    return formatText(view.relation == AirspaceRelation::Above ? kGroundTexts.airspaceOver
                                                               : kGroundTexts.airspaceUnder,
                      {altitudeText(height, altUnit), words});
}

std::string wordsOf(const AirspaceView& view) {
    return view.airspaceClass + ' ' + view.name + "  " + view.limits;
}

}  // namespace

AirspaceWatch::AirspaceWatch(const AirspaceSet& airspaces, AlarmBoard& board)
    : airspaces_(airspaces) {
    board.add({.urgency = AlarmUrgency::Warning,
               .condition = [this](bool) { return inside_.condition(); }});
    board.add({.urgency = AlarmUrgency::Caution, .delayMs = kDelayMs, .condition = [this](bool) {
                   return ahead_.condition();
               }});
}

void AirspaceWatch::update(const Situation& now, std::int64_t nowMs) {
    const auto before = std::exchange(list_, nullptr);
    // While the position is lost, what was told stays told.
    if (std::exchange(revision_, airspaces_.revision()) != airspaces_.revision()) {
        inside_ = {};
        ahead_ = {};
    }
    if (!now.position || airspaces_.all().empty())
        return;
    const std::vector<Sample> path = pathOf(now);
    std::vector<Found> found;
    for (const std::size_t i : airspaces_.touching(around(now)))
        if (auto view = viewOf(airspaces_.all()[i], now, path))
            found.push_back({i, std::move(*view)});
    const auto rank = [&](const Found& each) {
        const Airspace& airspace = airspaces_.all()[each.airspace];
        const int within = each.view.relation == AirspaceRelation::Ahead ? *each.view.seconds
                           : each.view.relation == AirspaceRelation::Below
                               ? -airspace.ceilingFt(now.groundFt)
                               : airspace.floorFt(now.groundFt);
        return std::pair(each.view.relation, within);
    };
    std::ranges::stable_sort(found, {}, rank);
    watch(found, now, nowMs);
    AirspaceList list;
    for (Found& each : found)
        list.push_back(std::move(each.view));
    // The same one while nothing changes, so that nothing is drawn anew.
    list_ =
        before && *before == list ? before : std::make_shared<const AirspaceList>(std::move(list));
}

void AirspaceWatch::watch(const std::vector<Found>& found, const Situation& now,
                          std::int64_t nowMs) {
    std::vector<std::size_t> inside;
    std::vector<std::size_t> ahead;
    for (const Found& each : found) {
        if (!asksForClearance(each.view.kind))
            continue;
        // Who hovers at a floor is not told of it each time.
        const bool stays =
            !each.view.seconds && each.view.heightFt <= kStaysFt && inside_.holds(each.airspace);
        if (each.view.relation == AirspaceRelation::Inside || stays)
            inside.push_back(each.airspace);
        if (isNear(each.view))
            ahead.push_back(each.airspace);
    }
    inside_.update(inside, nowMs);
    // What the aircraft is in no longer lies ahead.
    const auto isInside = [this](std::size_t i) { return inside_.holds(i); };
    std::erase_if(ahead, isInside);
    ahead_.update(ahead, nowMs);
    std::erase_if(ahead_.entries,
                  [&](const Told::Entry& entry) { return isInside(entry.airspace); });
    const std::string unknown =
        now.altitudeFt ? "" : "  " + std::string(text(kGroundTexts.heightUnknown));
    const auto newest = [&](const Told& told) -> const AirspaceView* {
        if (told.entries.empty())
            return nullptr;
        const auto at = std::ranges::find(found, told.entries.back().airspace, &Found::airspace);
        return at == found.end() ? nullptr : &at->view;
    };
    if (const AirspaceView* const view = newest(inside_))
        inside_.words = formatText(kGroundTexts.inAirspace, {wordsOf(*view) + unknown});
    if (const AirspaceView* const view = newest(ahead_); view != nullptr && isNear(*view))
        ahead_.words = aheadWords(*view, wordsOf(*view) + unknown, now.altUnit);
}

bool AirspaceWatch::Told::holds(std::size_t airspace) const {
    return std::ranges::find(entries, airspace, &Entry::airspace) != entries.end();
}

void AirspaceWatch::Told::update(const std::vector<std::size_t>& seen, std::int64_t nowMs) {
    isFresh = false;
    for (const std::size_t airspace : seen) {
        const auto known = std::ranges::find(entries, airspace, &Entry::airspace);
        if (known != entries.end()) {
            known->seenMs = nowMs;
            continue;
        }
        entries.push_back({airspace, nowMs});
        isFresh = true;
    }
    std::erase_if(entries, [&](const Entry& entry) { return nowMs - entry.seenMs > kStaysMs; });
}

std::optional<std::string> AirspaceWatch::Told::condition() const {
    return entries.empty() || isFresh ? std::nullopt : std::optional(words);
}

}  // namespace korvel
