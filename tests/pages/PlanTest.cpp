#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "map/DayMap.h"
#include "map/GreatCircleLine.h"
#include "map/feeds/TrackLevels.h"
#include "map/layers/TrackLayer.h"
#include "pages/FlightPlanPage.h"
#include "pages/PlanFigures.h"
#include "paint/Clip.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "paint/RecordingCanvas.h"
#include "platform/VirtualClock.h"

namespace korvel { namespace {

constexpr Rect kView{0, 0, 800, 480};

double distanceTo(const Segment& s, Point p) {
    const double dx = s.to.x - s.from.x;
    const double dy = s.to.y - s.from.y;
    const double length = dx * dx + dy * dy;
    const double along = length == 0 ? 0 : std::clamp(((p.x - s.from.x) * dx + (p.y - s.from.y) * dy) / length, 0., 1.);
    return std::hypot(s.from.x + along * dx - p.x, s.from.y + along * dy - p.y);
}

double distanceTo(const std::vector<Segment>& segments, Point p) {
    double nearest = std::numeric_limits<double>::infinity();
    for (const Segment& segment : segments) nearest = std::min(nearest, distanceTo(segment, p));
    return nearest;
}

std::vector<Segment> traced(const MapProjection& projection, GeoPoint from, GeoPoint to) {
    std::vector<Segment> segments;
    traceGreatCircle(projection, from, to, kView, [&](std::span<const Point> piece) {
        for (std::size_t i = 1; i < piece.size(); ++i) segments.push_back({piece[i - 1], piece[i]});
    });
    return segments;
}

TEST(GreatCircleLine, LiesOnTheWayAndNowhereElse) {
    struct Case {
        GeoPoint center;
        GeoPoint from;
        GeoPoint to;
        double pixelsPerNm;
    };
    const Case cases[] = {
        {atDegrees(50, 0), atDegrees(40, -30), atDegrees(40, 30), 0.24},
        {atDegrees(59.21, 0), atDegrees(40, -60), atDegrees(40, 60), 24},
        {atDegrees(0, 0), atDegrees(-40, -60), atDegrees(40, 60), 0.24},
        {atDegrees(60, 179.9), atDegrees(58, 170), atDegrees(59, -165), 2.4},
        {atDegrees(85, 20), atDegrees(80, 60), atDegrees(82, -150), 0.24},
        {atDegrees(-45, -179.5), atDegrees(-44, 179.5), atDegrees(-45, -178), 6},
    };
    for (const Case& one : cases) {
        const MapProjection projection(one.center, {400, 270}, one.pixelsPerNm, 30);
        const std::vector<Segment> segments = traced(projection, one.from, one.to);
        const double length = GreatCircleDistance(one.from.lat, one.from.lon, one.to.lat, one.to.lon);
        const double course = TrueCourse(one.from.lat, one.from.lon, one.to.lat, one.to.lon);
        std::vector<Segment> exact;
        Point before{-1, -1};
        int seen = 0;
        constexpr int kSteps = 20000;
        for (int i = 0; i <= kSteps; ++i) {
            GeoPoint place;
            PointAtRadialDistance(one.from.lat, one.from.lon, length * i / kSteps, course, place.lat, place.lon);
            const Point at = projection.project(place);
            if (kView.contains(at)) {
                ++seen;
                EXPECT_LT(distanceTo(segments, at), 1.0) << i;
                exact.push_back({before.x < 0 ? at : before, at});
                before = at;
            } else {
                before.x = -1;
            }
        }
        EXPECT_GT(seen, 0);
        for (const Segment& segment : segments)
            for (const Point end : {segment.from, segment.to}) {
                EXPECT_TRUE(grown(kView, 0.001).contains(end));
                EXPECT_LT(distanceTo(exact, end), 40 * one.pixelsPerNm / 24 + 2);
            }
    }
}

/// Random walks with breaks between them; the steps are half a mile.
std::shared_ptr<Track> randomTrack(VirtualClock& clock, int points) {
    auto track = std::make_shared<Track>(clock);
    std::mt19937 random(7);
    std::normal_distribution<double> turn(0, 0.3);
    double course = 0;
    GeoPoint at = atDegrees(60, 179.5);
    for (int i = 0; i < points; ++i) {
        if (i % 400 == 399) {
            track->setPendingBreak();
            at = atDegrees(60 + i * 1e-4, i % 800 < 400 ? 179.2 : -179.3);
        }
        course += turn(random);
        PointAtRadialDistance(at.lat, at.lon, 0.5 / kNmPerRadian, course, at.lat, at.lon);
        track->AddTrackPoint(at, 100, 0, 0);
        clock.advanceMs(5000);
    }
    return track;
}

TEST(TrackLayer, DrawsWhereTheTrackWentAndNotAcrossBreaks) {
    VirtualClock clock;
    const std::shared_ptr<Track> track = randomTrack(clock, 3000);
    TrackLevels levels;
    levels.update(track);
    for (const double pixelsPerNm : {100.0, 6.0, 1.0, 0.24}) {
        const MapProjection projection(atDegrees(60, 179.9), {400, 270}, pixelsPerNm, 30);
        const std::vector<Segment> segments = trackSegments(levels, projection, kView);
        ASSERT_FALSE(segments.empty());
        std::vector<Segment> exact;
        std::optional<Point> before;
        for (const auto& slot : track->read()->slots) {
            if (!slot) {
                before.reset();
                continue;
            }
            const Point at = projection.project(slot->position);
            if (before) {
                exact.push_back({*before, at});
                if (kView.contains(at)) { EXPECT_LT(distanceTo(segments, at), 5.0) << pixelsPerNm; }
            }
            before = at;
        }
        for (const Segment& segment : segments)
            EXPECT_LT(
                distanceTo(exact, {(segment.from.x + segment.to.x) / 2, (segment.from.y + segment.to.y) / 2}), 3.0);
    }
}

TEST(TrackLayer, WaysLeaveTheMapAtItsSeam) {
    VirtualClock clock;
    const auto recorded = [&clock](std::initializer_list<double> longitudes) {
        auto track = std::make_shared<Track>(clock);
        for (const double lonDeg : longitudes) {
            track->AddTrackPoint(atDegrees(10, lonDeg), 0, 0, 0);
            clock.advanceMs(5000);
        }
        return track;
    };
    // The whole earth: its seam is on the screen on both sides.
    const MapProjection projection(atDegrees(0, 0), {400, 270}, 0.03, 0);
    TrackLevels levels;
    levels.update(recorded({170, 179, -179, -170}));
    const std::vector<Segment> track = trackSegments(levels, projection, kView);
    EXPECT_EQ(track.size(), 2U);
    for (const auto& segments : {track, traced(projection, atDegrees(10, 170), atDegrees(10, -170))}) {
        EXPECT_FALSE(segments.empty());
        for (const Segment& segment : segments) EXPECT_LT(std::abs(segment.to.x - segment.from.x), 20);
    }
    levels.update(recorded({179.9999, -179.9999}));
    EXPECT_EQ(levels.levelFor(5).points.size(), 1U) << "24 metres apart, not the whole earth";
}

TEST(TrackLayer, GrowsToWhatItWouldBeAtOnce) {
    VirtualClock clock;
    const std::shared_ptr<Track> whole = randomTrack(clock, 1000);
    VirtualClock second;
    const auto growing = std::make_shared<Track>(second);
    TrackLevels step, once;
    step.update(randomTrack(clock, 50));  // another one before
    for (const auto& slot : whole->read()->slots) {
        if (!slot) {
            growing->setPendingBreak();
            continue;
        }
        growing->AddTrackPoint(slot->position, 0, 0, 0);
        second.advanceMs(5000);
        step.update(growing);
    }
    once.update(whole);
    for (const double spacingNm : {0.01, 0.7, 5.0}) {
        EXPECT_EQ(step.levelFor(spacingNm).points, once.levelFor(spacingNm).points);
        EXPECT_EQ(step.levelFor(spacingNm).chunks.size(), once.levelFor(spacingNm).chunks.size());
    }
    step.update(nullptr);
    EXPECT_TRUE(step.levelFor(1).points.empty());
}

std::shared_ptr<PlanView> planOf(std::size_t rows, std::optional<std::size_t> active) {
    auto plan = std::make_shared<PlanView>();
    for (std::size_t i = 0; i < rows; ++i) {
        const std::string ident = std::string("W").append(std::to_string(i));
        PlanRow& row = plan->rows.emplace_back();
        row.ident = ident;
        row.name = ident;
        row.position = atDegrees(48.3537 + 0.5 * static_cast<double>(i), 11.7861);
        if (i > 0) {
            plan->rows.back().legNm = 30;
            plan->rows.back().courseMagDeg = 358;
            plan->totalNm += 30;
        }
    }
    plan->active = active;
    return plan;
}

TEST(FlightPlanPage, Figures) {
    CockpitData data = flying();
    EXPECT_TRUE(planFigures(data).empty());
    data.plan = planOf(4, std::nullopt);
    data.groundSpeedKt = 60;
    // On the ground: from the first entry, without an arrival.
    EXPECT_EQ(planFigures(data)[0], PlanFigures{});
    EXPECT_EQ(planFigures(data)[3], (PlanFigures{358, 30, 90, 0.5, std::nullopt}));
    data.plan = planOf(4, 2);
    data.activeWaypoint = data.plan->rows[2].position;
    data.distanceNm = 12;
    data.desiredTrackMagDeg = 1;
    EXPECT_EQ(planFigures(data)[1], (PlanFigures{358, {}, {}, {}, {}}));
    EXPECT_EQ(planFigures(data)[2], (PlanFigures{1, 12, 12, 0.2, 0.2}));
    EXPECT_EQ(planFigures(data)[3], (PlanFigures{358, 30, 42, 0.5, 0.7}));
    data.groundSpeedKt.reset();
    EXPECT_EQ(planFigures(data)[3], (PlanFigures{358, 30, 42, {}, {}}));
    // Flown to something else: the plan's own distances.
    data.activeWaypoint = atDegrees(0, 0);
    EXPECT_EQ(planFigures(data)[2].legNm, 30);

    EXPECT_EQ(durationText(1.999), "2:00");
    EXPECT_EQ(durationText(100), "---");
    EXPECT_EQ(arrivalText(10.0, flying().now), "00:05");
    EXPECT_EQ(arrivalText(std::nullopt, flying().now), "---");
    EXPECT_EQ(arrivalText(0, {.hour = 14, .minute = 5, .second = 30}), "14:06");
}

TEST(FlightPlanPage, RowsAndPictures) {
    const ColorScheme scheme;
    const MapColorCache colors(scheme);
    for (const auto& [width, height] : {std::pair{480., 400.}, {640., 300.}, {800., 370.}, {1280., 660.}}) {
        CockpitData data = flying();
        RecordingCanvas canvas(width, height);
        paintFlightPlanPage(canvas, data, {}, colors);
        EXPECT_EQ(canvas.texts(), "No flight plan: tap here or press F to enter one\n");
        data.plan = planOf(30, 20);
        data.activeWaypoint = data.plan->rows[20].position;
        data.distanceNm = 1234;
        const FlightPlanRows rows(width, height, 30);
        for (const std::size_t first : {std::size_t{0}, rows.lastFirst()})
            for (std::size_t i = first; i < first + rows.visible(); ++i) {
                const Rect area = rows.row(i, first);
                EXPECT_GE(area.height, 36);
                EXPECT_EQ(rows.rowAt(area.center(), first), i);
            }
        EXPECT_EQ(rows.rowAt(rows.header().center(), 0), std::nullopt);
        EXPECT_EQ(rows.rowAt(rows.totals().center(), 0), std::nullopt);
        canvas.clear();
        paintFlightPlanPage(canvas, data, {}, colors);
        EXPECT_NE(canvas.findText("W19"), nullptr) << "the one before the active row";
        EXPECT_NE(canvas.findText("W20"), nullptr);
        EXPECT_EQ(canvas.findText("W18"), nullptr);
        canvas.clear();
        paintFlightPlanPage(canvas, data, {.firstRow = 99}, colors);
        EXPECT_NE(canvas.findText("W29"), nullptr);
        double end = 0;
        for (const auto& element : canvas.elements()) {
            if (element.kind == RecordingCanvas::Kind::Text) {
                EXPECT_TRUE(element.area.x >= 0 && element.area.right() <= width) << element.text;
                if (!rows.totals().contains(element.area.center())) continue;
                EXPECT_GT(element.area.x, end) << element.text;
                end = element.area.right();
            }
        }
        EXPECT_GT(end, width * 0.9);
    }
}

TEST(PlanLayer, ActiveLegStandsOut) {
    const DayMap map;
    CockpitData data = flying();
    data.plan = planOf(4, 1);
    data.legStart = data.plan->rows[0].position;
    data.activeWaypoint = data.plan->rows[1].position;
    const auto pens = [&] {
        RecordingCanvas canvas(800, 480);
        MapViewport viewport;
        viewport.layout(PageId::Map, 800, 480);
        viewport.chooseRange(100);
        map.paint(canvas, data, viewport);
        EXPECT_NE(canvas.findText("W1"), nullptr);
        std::string found;
        for (const auto& element : canvas.elements())
            if (element.kind == RecordingCanvas::Kind::Polyline) {
                const bool plan = element.pen->color == map.scheme.Color("map.flightplan");
                found += std::to_string(std::lround(element.pen->width)) + (plan ? "p" : "-") +
                         (element.pen->style == PenStyle::Dash ? "d " : " ");
            }
        return found;
    };
    EXPECT_EQ(pens(), "3p 3p 9- 5p 2- ") << "two legs ahead, then the active one with its rim";
    auto later = planOf(4, 2);
    data.plan = later;
    data.legStart = later->rows[1].position;
    data.activeWaypoint = later->rows[2].position;
    EXPECT_EQ(pens(), "2-d 3p 9- 5p 2- ");
    data.directLeg = true;
    data.legStart = data.position;
    EXPECT_EQ(pens(), "2-d 3p 3p 9- 5p 2- ");
    data.obsCourseMagDeg = 90;
    data.desiredTrackTrueDeg = 90;
    EXPECT_EQ(pens(), "2-d 3p 3p 3pd 9- 5p 2- ");
}

TEST(PlanLayer, ADirectToIsCalledAsOnTheChart) {
    const DayMap map;
    CockpitData data = flying();
    data.directLeg = true;
    data.legStart = data.position;
    data.activeWaypoint = GeoPoint{data.position->lat + 0.004, data.position->lon};
    data.activeName = "Renton Muni";
    for (const auto& [key, label] : {std::pair{"a.KRNT", "KRNT"}, std::pair{"", "Renton Muni"}}) {
        data.activeKey = key;
        RecordingCanvas canvas(800, 480);
        MapViewport viewport;
        viewport.layout(PageId::Map, 800, 480);
        map.paint(canvas, data, viewport);
        EXPECT_NE(canvas.findText(label), nullptr) << label;
    }
}

}}  // namespace korvel
