#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "paint/Clip.h"

namespace korvel { namespace {

constexpr Rect kView{10, 20, 100, 50};
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

bool isInside(Point p, double slack = 1e-6) {
    return p.x >= kView.x - slack && p.x <= kView.right() + slack && p.y >= kView.y - slack &&
           p.y <= kView.bottom() + slack;
}

TEST(Clip, SegmentsAreCutAtTheEdges) {
    const std::tuple<Segment, std::optional<Segment>> cases[] = {
        {{{20, 30}, {50, 60}}, Segment{{20, 30}, {50, 60}}},
        {{{0, 40}, {200, 40}}, Segment{{10, 40}, {110, 40}}},
        {{{200, 40}, {0, 40}}, Segment{{110, 40}, {10, 40}}},  // keeps its direction
        {{{60, -1e9}, {60, 1e9}}, Segment{{60, 20}, {60, 70}}},
        {{{0, 10}, {40, 50}}, Segment{{10, 20}, {40, 50}}},
        {{{10, 0}, {10, 100}}, Segment{{10, 20}, {10, 70}}},  // the edge counts as inside
        {{{9, 0}, {9, 100}}, std::nullopt},
        {{{0, 65}, {40, 95}}, std::nullopt},  // passes a corner
        {{{60, 40}, {60, 40}}, Segment{{60, 40}, {60, 40}}},
        {{{60, 40}, {kNan, 40}}, std::nullopt},
        {{{60, 40}, {kInfinity, 40}}, std::nullopt},
    };
    for (const auto& [segment, inside] : cases) {
        const std::optional<Segment> result = clipSegment(segment, kView);
        ASSERT_EQ(result.has_value(), inside.has_value()) << segment.to.x;
        if (!result) continue;
        EXPECT_LT(std::hypot(result->from.x - inside->from.x, result->from.y - inside->from.y), 1e-6);
        EXPECT_LT(std::hypot(result->to.x - inside->to.x, result->to.y - inside->to.y), 1e-6);
    }
}

// Against the slow way: which of many points along the segment lie inside.
TEST(Clip, RandomSegmentsKeepExactlyWhatLiesInside) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-100, 250);
    for (int round = 0; round < 2000; ++round) {
        const Segment segment{{anywhere(random), anywhere(random)}, {anywhere(random), anywhere(random)}};
        const std::optional<Segment> clipped = clipSegment(segment, kView);
        const double length = std::hypot(segment.to.x - segment.from.x, segment.to.y - segment.from.y);
        int inside = 0;
        constexpr int kSteps = 1000;
        for (int i = 0; i < kSteps; ++i) {
            const double share = (i + 0.5) / kSteps;
            inside += isInside({segment.from.x + share * (segment.to.x - segment.from.x),
                          segment.from.y + share * (segment.to.y - segment.from.y)})
                          ? 1
                          : 0;
        }
        const double kept = clipped ? std::hypot(clipped->to.x - clipped->from.x, clipped->to.y - clipped->from.y) : 0;
        ASSERT_NEAR(kept, length * inside / kSteps, 2.1 * length / kSteps);
        if (clipped) { ASSERT_TRUE(isInside(clipped->from) && isInside(clipped->to)); }
    }
}

TEST(Clip, APolylineFallsIntoItsVisiblePieces) {
    const std::vector<Point> wave{{20, 30}, {30, 30}, {30, 0}, {50, 0}, {50, 30}, {60, 30}, {500, 30}, {kNan, 30},
        {70, 30}, {80, 30}, {90, 10}, {100, 30}};
    std::vector<std::vector<Point>> pieces;
    clipPolyline(wave, kView, [&](std::span<const Point> piece) { pieces.emplace_back(piece.begin(), piece.end()); });
    const std::vector<std::vector<Point>> expected{{{20, 30}, {30, 30}, {30, 20}},
        {{50, 20}, {50, 30}, {60, 30}, {110, 30}}, {{70, 30}, {80, 30}, {85, 20}}, {{95, 20}, {100, 30}}};
    EXPECT_EQ(pieces, expected);
}

double areaOf(std::span<const Point> points) {
    double twice = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& next = points[(i + 1) % points.size()];
        twice += points[i].x * next.y - next.x * points[i].y;
    }
    return std::abs(twice / 2);
}

TEST(Clip, PolygonsKeepTheirAreaInsideTheView) {
    const std::tuple<std::vector<Point>, double> cases[] = {
        {{{20, 30}, {40, 30}, {40, 50}}, 200},
        {{{-1e7, -1e7}, {1e7, -1e7}, {1e7, 1e7}, {-1e7, 1e7}}, 5000},  // all around the view
        {{{60, 20}, {300, 20}, {300, 70}, {60, 70}}, 2500},
        {{{200, 200}, {300, 200}, {300, 300}}, 0},
        {{{10, 20}, {60, -30}, {110, 20}}, 0},  // touches the upper edge from outside
        {{{20, 30}, {kNan, 30}, {40, 50}}, 0},
        {{{20, 30}}, 0},
    };
    for (const auto& [polygon, area] : cases) {
        const std::vector<Point> clipped = clipPolygon(polygon, kView);
        EXPECT_NEAR(areaOf(clipped), area, 1e-3);
        EXPECT_TRUE(std::all_of(clipped.begin(), clipped.end(), [](Point p) { return isInside(p); }));
    }
}

}}  // namespace korvel
