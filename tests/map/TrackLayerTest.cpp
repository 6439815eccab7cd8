#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "map/GreatCircleLine.h"
#include "map/feeds/TrackLevels.h"
#include "map/layers/TrackLayer.h"
#include "paint/Clip.h"
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
    const struct {
        GeoPoint center;
        GeoPoint from;
        GeoPoint to;
        double pixelsPerNm;
    } cases[] = {
        {atDegrees(50, 0), atDegrees(40, -30), atDegrees(40, 30), 0.24},
        {atDegrees(59.21, 0), atDegrees(40, -60), atDegrees(40, 60), 24},
        {atDegrees(0, 0), atDegrees(-40, -60), atDegrees(40, 60), 0.24},
        {atDegrees(60, 179.9), atDegrees(58, 170), atDegrees(59, -165), 2.4},
        {atDegrees(85, 20), atDegrees(80, 60), atDegrees(82, -150), 0.24},
        {atDegrees(-45, -179.5), atDegrees(-44, 179.5), atDegrees(-45, -178), 6},
    };
    for (const auto& one : cases) {
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

}}  // namespace korvel
