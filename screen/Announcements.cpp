#include "screen/Announcements.h"

#include <string_view>
#include <utility>

#include "config/texts/MessageTexts.h"
#include "config/texts/ReceiverTexts.h"
#include "map/layers/PlanMarks.h"
#include "navdb/records/RecordKey.h"

namespace korvel {
namespace {

/// The identifier as well: a VOR is often called like the airport beside it.
std::string calledWaypoint(const CockpitData& data) {
    const std::string_view ident = identOfKey(data.activeKey);
    if (data.activeName.empty() || ident.empty() || ident == data.activeName)
        return data.activeName.empty() ? std::string(ident) : data.activeName;
    return std::string(ident) + ' ' + data.activeName;
}

/// The altitude that is wanted there; the one to be at next may belong to a later waypoint.
std::optional<std::int32_t> altitudeAtWaypoint(const CockpitData& data) {
    if (data.directLeg)
        return data.targetAltitudeFt;
    const auto row = flownRow(data);
    return row ? data.plan->rows[*row].altitudeFt : std::nullopt;
}

}  // namespace

std::string Announcements::tick(const CockpitData& data) {
    std::string next = waypoint(data);
    std::string landing = approach(data);
    if (data.sourceEnded && !std::exchange(sourceEnded_, data.sourceEnded))
        return std::string(text(kReceiverTexts.replayOver));
    sourceEnded_ = data.sourceEnded;
    return landing.empty() ? next : landing;
}

/// By its name alone: while it descends towards one, the altitude there changes all the time.
std::string Announcements::waypoint(const CockpitData& data) {
    std::string called = calledWaypoint(data);
    if (called == waypoint_)
        return {};
    waypoint_ = std::move(called);
    if (waypoint_.empty())
        return {};
    const std::string_view name = waypoint_;
    const auto altitudeFt = altitudeAtWaypoint(data);
    return altitudeFt ? formatText(kMessageTexts.nextWaypointAt, {name, *altitudeFt})
                      : formatText(kMessageTexts.nextWaypoint, {name});
}

std::string Announcements::approach(const CockpitData& data) {
    const auto runway =
        data.approach ? std::optional(data.approach->runway) : std::optional<LandingRunway>();
    // Without a position there are no figures, but the approach goes on.
    if (!data.position || runway == runway_)
        return {};
    runway_ = runway;
    return runway ? formatText(kMessageTexts.approachBegun,
                               {std::string_view(runway->id), std::string_view(runway->airport)})
                  : std::string(text(kMessageTexts.approachEnded));
}

}  // namespace korvel
