#include "map/layers/PlanLines.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "cockpit/CockpitData.h"
#include "geo/Geodesy.h"
#include "map/GreatCircleLine.h"
#include "map/MapViewport.h"
#include "paint/Clip.h"
#include "paint/LabelSpace.h"

namespace korvel {
namespace {

/// A course to intercept reaches at least so far before the waypoint, and so far behind it.
constexpr double kCourseBeforeNm = 20;
constexpr double kCourseBehindNm = 20;

/// What is flown along: towards the waypoint wide, beyond it thin and dashed.
struct ActiveLine {
    GeoPoint from;
    GeoPoint to;
    std::optional<GeoPoint> beyond{};
};

/// A course to intercept reaches through the waypoint.
ActiveLine courseLine(GeoPoint waypoint, double courseTrueDeg, double distanceNm) {
    const auto at = [&](double nm, double directionDeg) {
        GeoPoint point;
        PointAtRadialDistance(waypoint.lat, waypoint.lon, nm / kNmPerRadian,
                              directionDeg * kDegToRad, point.lat, point.lon);
        return point;
    };
    const double before = std::max(kCourseBeforeNm, distanceNm * 1.2);
    return {at(before, PositiveMod(courseTrueDeg + 180, 360)), waypoint,
            at(kCourseBehindNm, courseTrueDeg)};
}

std::optional<ActiveLine> activeLine(const CockpitData& data) {
    if (data.approach)
        return ActiveLine{onCenterLine(data.approach->runway, kCenterLineNm),
                          data.approach->runway.threshold};
    if (!data.activeWaypoint)
        return std::nullopt;
    if (data.obsCourseMagDeg && data.desiredTrackTrueDeg)
        return courseLine(*data.activeWaypoint, *data.desiredTrackTrueDeg,
                          data.distanceNm.value_or(0));
    if (data.legStart)
        return ActiveLine{*data.legStart, *data.activeWaypoint};
    return std::nullopt;
}

class Tracer {
 public:
    Tracer(const MapProjection& projection, const Rect& view)
        : projection_(projection),
          // A wide line's edge may show where its middle does not.
          reach_(grown(view, kPlanLineReach)) {}

    void trace(PlanLineKind kind, GeoPoint from, GeoPoint to) {
        traceGreatCircle(
            projection_, from, to, reach_,
            [&](std::span<const Point> piece) {
                lines_.push_back({kind, {piece.begin(), piece.end()}});
            });
    }
    std::vector<PlanLine> takeLines() { return std::move(lines_); }

 private:
    const MapProjection& projection_;
    Rect reach_;
    std::vector<PlanLine> lines_;
};

/// The leg that is flown is the plan's own, unless the pilot joined it from elsewhere.
bool isFlownFrom(const CockpitData& data, GeoPoint start) {
    return !data.directLeg && data.legStart && SamePoint(start, *data.legStart);
}

void reserve(const Segment& segment, LabelSpace& space) {
    const double x = segment.to.x - segment.from.x;
    const double y = segment.to.y - segment.from.y;
    const int steps = std::max(1, static_cast<int>(std::ceil(std::hypot(x, y) / kPlanLineReach)));
    for (int step = 0; step <= steps; ++step) {
        const double share = static_cast<double>(step) / steps;
        space.reserve(grown({segment.from.x + x * share, segment.from.y + y * share, 0, 0},
                            kPlanLineReach / 2));
    }
}

}  // namespace

std::vector<PlanLine> tracePlan(const CockpitData& data, const MapProjection& projection,
                                const Rect& view) {
    Tracer tracer(projection, view);
    const std::optional<std::size_t> flown = flownRow(data);
    const std::size_t rows = data.plan ? data.plan->rows.size() : 0;
    for (std::size_t i = 1; i < rows; ++i) {
        const GeoPoint from = data.plan->rows[i - 1].position;
        if (i == flown && isFlownFrom(data, from))
            continue;
        const bool behind = isBehind(planPart(*data.plan, i));
        tracer.trace(behind ? PlanLineKind::Passed : PlanLineKind::Ahead, from,
                     data.plan->rows[i].position);
    }
    if (const auto leg = activeLine(data)) {
        if (leg->beyond)
            tracer.trace(PlanLineKind::Beyond, leg->to, *leg->beyond);
        tracer.trace(PlanLineKind::Flown, leg->from, leg->to);
    }
    return tracer.takeLines();
}

void reservePlanLines(std::span<const PlanLine> lines, LabelSpace& space) {
    for (const PlanLine& line : lines)
        if (line.kind == PlanLineKind::Ahead || line.kind == PlanLineKind::Flown)
            for (std::size_t i = 1; i < line.points.size(); ++i)
                reserve({line.points[i - 1], line.points[i]}, space);
}

}  // namespace korvel
