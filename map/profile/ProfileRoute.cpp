#include "map/profile/ProfileRoute.h"

#include <utility>

#include "cockpit/CockpitData.h"
#include "geo/Geodesy.h"
#include "navdb/records/RecordKey.h"

namespace korvel {
namespace {

/// So far a track leads: farther than any profile.
constexpr double kTrackNm = 300;
/// Above the airport where the plan ends: there the descent ends and the circuit begins.
constexpr int kCircuitFt = 1000;

class RouteMaker {
 public:
    explicit RouteMaker(const CockpitData& data) : data_(data) {}

    ProfileRoute make() {
        if (data_.position) {
            route_.fromAircraft = true;
            route_.stops.push_back({.position = *data_.position});
            if (!toRunway() && !alongPlan() && !toWaypoint() && !alongTrack())
                route_ = {};
        }
        if (route_.stops.empty() && data_.plan)
            addRows(0);
        if (route_.lengthNm() <= 0)
            route_ = {};
        return std::move(route_);
    }

 private:
    bool toRunway() {
        if (!data_.approach || data_.approach->toGoNm <= 0)
            return false;
        const LandingRunway& runway = data_.approach->runway;
        std::optional<int> overThreshold;
        if (runway.thresholdFt)
            overThreshold = *runway.thresholdFt + static_cast<int>(kThresholdHeightFt);
        add({.position = runway.threshold, .ident = runway.id, .altitudeFt = overThreshold});
        return true;
    }
    bool alongPlan() {
        const auto row = flownRow(data_);
        if (row)
            addRows(*row);
        return row.has_value();
    }
    bool toWaypoint() {
        if (!data_.activeWaypoint)
            return false;
        ProfileStop stop{.position = *data_.activeWaypoint, .ident = data_.activeName};
        if (hasKindPrefix(data_.activeKey))
            stop.ident = identOfKey(data_.activeKey);
        // Else it is that of a later place of the plan.
        if (data_.directLeg)
            stop.altitudeFt = data_.targetAltitudeFt;
        add(std::move(stop));
        return true;
    }
    bool alongTrack() {
        if (!data_.trackTrueDeg)
            return false;
        ProfileStop far;
        PointAtRadialDistance(data_.position->lat, data_.position->lon, kTrackNm / kNmPerRadian,
                              *data_.trackTrueDeg * kDegToRad, far.position.lat, far.position.lon);
        add(far);
        route_.alongTrack = true;
        return true;
    }

    void addRows(std::size_t from) {
        for (std::size_t i = from; i < data_.plan->rows.size(); ++i) {
            const PlanRow& row = data_.plan->rows[i];
            add({.position = row.position, .ident = row.ident, .altitudeFt = row.altitudeFt});
        }
        comeDown();
    }
    /// Who is high or has planned to be comes down at the plan's end, though none was told to.
    void comeDown() {
        const auto ground = data_.plan->rows.back().elevationFt;
        std::optional<int> from = data_.altitudeFt;
        for (const ProfileStop& stop : route_.stops)
            if (stop.altitudeFt)
                from = stop.altitudeFt;
        std::optional<int>& atEnd = route_.stops.back().altitudeFt;
        if (ground && !atEnd && from && *from > *ground + kCircuitFt)
            atEnd = *ground + kCircuitFt;
    }
    void add(ProfileStop stop) {
        if (!route_.stops.empty()) {
            const ProfileStop& last = route_.stops.back();
            stop.nm = last.nm + DistanceNm(last.position, stop.position);
        }
        route_.stops.push_back(std::move(stop));
    }

    const CockpitData& data_;
    ProfileRoute route_;
};

}  // namespace

ProfileRoute profileRoute(const CockpitData& data) { return RouteMaker(data).make(); }

}  // namespace korvel
