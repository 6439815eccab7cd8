#include "display/PlanLayer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "display/Clip.h"
#include "display/GreatCircleLine.h"
#include "display/MapFrame.h"
#include "nav/Geodesy.h"

namespace korvel {
namespace {

constexpr double kFaded = 0.5;
constexpr double kActiveWidth = 5;
constexpr double kCoreWidth = 1.5;  // of the background inside it
constexpr double kAheadWidth = 2.5;
constexpr double kPassedWidth = 2;
constexpr double kRim = 2;  // of the background around the active leg
/// Labels keep off the lines in boxes of this size.
constexpr double kLineStep = kActiveWidth + 2 * kRim;
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

class PlanPainter {
 public:
    PlanPainter(const MapFrame& frame, Canvas& canvas)
        : frame_(frame),
          canvas_(canvas),
          // A wide line's edge may show where its middle does not.
          reach_(grown(frame.view, kActiveWidth)),
          background_(frame.colors[ColorKey::MapBackground]),
          plan_(frame.colors[ColorKey::MapFlightPlan]),
          active_(frame.colors[ColorKey::MapFlightPlanActive]),
          faded_(blended(plan_, background_, kFaded)) {}

    void planLegs() const {
        if (!frame_.data.plan)
            return;
        const PlanView& plan = *frame_.data.plan;
        const std::optional<std::size_t> flown = flownRow(frame_.data);
        for (std::size_t i = 1; i < plan.rows.size(); ++i) {
            const GeoPoint from = plan.rows[i - 1].position;
            const PlanPart part = planPart(plan, i);
            if (i == flown && isFlownFrom(from))
                continue;
            line(from, plan.rows[i].position,
                 part == PlanPart::Passed ? Pen{faded_, kPassedWidth, PenStyle::Dash}
                                          : Pen{plan_, kAheadWidth, PenStyle::Solid});
        }
    }

    void activeLeg() const {
        const auto leg = activeLine(frame_.data);
        if (!leg)
            return;
        if (leg->beyond)
            line(leg->to, *leg->beyond, {active_, kAheadWidth, PenStyle::Dash});
        wideLine(leg->from, leg->to);
    }

    void marks() const {
        for (const PlanMark& mark : frame_.planMarks) {
            symbol(mark);
            if (!mark.label.empty())
                label(mark);
        }
    }

 private:
    /// The leg that is flown is the plan's own, unless the pilot joined it from elsewhere.
    [[nodiscard]] bool isFlownFrom(GeoPoint start) const {
        const CockpitData& data = frame_.data;
        return !data.directLeg && data.legStart && SamePoint(start, *data.legStart);
    }

    void line(GeoPoint from, GeoPoint to, const Pen& pen) const {
        traceGreatCircle(frame_.projection, from, to, reach_,
                         [&](std::span<const Point> piece) { canvas_.polyline(piece, pen); });
    }

    void wideLine(GeoPoint from, GeoPoint to) const {
        line(from, to, {background_, kActiveWidth + 2 * kRim, PenStyle::Solid});
        line(from, to, {active_, kActiveWidth, PenStyle::Solid});
        // Hollow: a track of the same colour, as at night, is never mistaken for it.
        line(from, to, {background_, kCoreWidth, PenStyle::Solid});
    }

    /// A diamond, open so that the chart's symbol shows, but for the waypoint that is flown to.
    void symbol(const PlanMark& mark) const {
        const double r = planSymbolRadius(mark.part, frame_.textPx);
        const Point c = mark.at;
        const std::array diamond{Point{c.x, c.y - r}, Point{c.x + r, c.y}, Point{c.x, c.y + r},
                                 Point{c.x - r, c.y}};
        const bool isActive = mark.part == PlanPart::Active;
        const ColorValue color = isActive                        ? active_
                                 : mark.part == PlanPart::Passed ? faded_
                                                                 : plan_;
        canvas_.polygon(diamond, std::nullopt, Pen{background_, 6, PenStyle::Solid});
        canvas_.polygon(diamond, isActive ? std::optional(Brush{color}) : std::nullopt,
                        Pen{color, mark.part == PlanPart::Passed ? 1.5 : 2.5, PenStyle::Solid});
    }

    void label(const PlanMark& mark) const {
        TextStyle style = planLabelStyle(mark.part, frame_.textPx);
        if (mark.part == PlanPart::Active) {
            style.color = frame_.colors[ColorKey::HsiNumeral];
            canvas_.rect(mark.labelBox, Brush{background_}, Pen{active_, 2, PenStyle::Solid});
        } else {
            style.color = mark.part == PlanPart::Passed ? faded_ : plan_;
            style.halo = background_;
        }
        canvas_.text(mark.labelAt, mark.label, style);
    }

    const MapFrame& frame_;
    Canvas& canvas_;
    Rect reach_;
    ColorValue background_;
    ColorValue plan_;
    ColorValue active_;
    ColorValue faded_;
};

}  // namespace

void paintPlan(const MapFrame& frame, Canvas& canvas) {
    const PlanPainter painter(frame, canvas);
    painter.planLegs();
    painter.activeLeg();
    painter.marks();
}

void reservePlanLines(const CockpitData& data, const MapProjection& projection, const Rect& view,
                      LabelSpace& lines) {
    const auto keep = [&](std::span<const Point> piece) {
        for (std::size_t i = 1; i < piece.size(); ++i) {
            const Point from = piece[i - 1];
            const Point to = piece[i];
            const double length = std::hypot(to.x - from.x, to.y - from.y);
            const int steps = std::max(1, static_cast<int>(std::ceil(length / kLineStep)));
            for (int step = 0; step <= steps; ++step) {
                const double share = static_cast<double>(step) / steps;
                const Point middle{from.x + (to.x - from.x) * share,
                                   from.y + (to.y - from.y) * share};
                lines.reserve(grown({middle.x, middle.y, 0, 0}, kLineStep / 2));
            }
        }
    };
    const auto keepLeg = [&](GeoPoint from, GeoPoint to) {
        traceGreatCircle(projection, from, to, view, keep);
    };
    if (const auto active = activeLine(data))
        keepLeg(active->from, active->to);
    const std::size_t rows = data.plan ? data.plan->rows.size() : 0;
    for (std::size_t i = 1; i < rows; ++i)
        if (planPart(*data.plan, i) == PlanPart::Ahead)
            keepLeg(data.plan->rows[i - 1].position, data.plan->rows[i].position);
}

}  // namespace korvel
