#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "cockpit/Cockpit.h"
#include "map/MapGrid.h"
#include "map/MapViewport.h"

namespace korvel { namespace {

constexpr double kHalf = 1e-6;

MapViewport viewportOf(int width, int height, int rangeNm, PageId page = PageId::NorthUp) {
    MapViewport viewport;
    viewport.layout(page, width, height);
    viewport.chooseRange(rangeNm);
    return viewport;
}

std::vector<GridLine> gridOf(const MapViewport& viewport, GeoPoint center, int angle = 0) {
    return gridLines(viewport.projection(center, angle),
        {0, 0, static_cast<double>(viewport.width()), static_cast<double>(viewport.height())});
}

std::vector<std::string> labelsOf(const std::vector<GridLine>& lines) {
    std::vector<std::string> labels;
    for (const GridLine& line : lines) labels.push_back(line.label);
    return labels;
}

bool isLatitude(const GridLine& line) { return line.label[0] == 'N' || line.label[0] == 'S'; }

// How far a point lies from the straight line through a segment.
double distanceFrom(const Segment& line, Point p) {
    const double dx = line.to.x - line.from.x;
    const double dy = line.to.y - line.from.y;
    return std::abs((p.x - line.from.x) * dy - (p.y - line.from.y) * dx) / std::hypot(dx, dy);
}

TEST(MapGrid, StepsAreRoundAndFarEnoughApart) {
    const std::tuple<double, int> cases[] = {{100000, 30}, {6000, 60}, {5999, 120}, {300, 1200}, {100, 3600},
        {99, 7200}, {1.2, 324000}, {1, 0}, {0.1, 0}, {0, 0}};
    for (const auto& [pixelsPerDegree, stepSec] : cases) {
        const int step = gridStepSec(pixelsPerDegree, 100);
        EXPECT_EQ(step, stepSec) << pixelsPerDegree;
    }
}

TEST(MapGrid, LinesRunWhereTheProjectionPutsThem) {
    for (const int angle : {0, 33, 90, 200}) {
        const MapViewport viewport = viewportOf(1280, 620, 65, PageId::Map);
        const GeoPoint center = atDegrees(48.35, 11.8);
        const std::vector<GridLine> lines = gridOf(viewport, center, angle);
        const auto find = [&](std::string_view label) {
            return std::find_if(
                lines.begin(), lines.end(), [label](const GridLine& line) { return line.label == label; });
        };
        const auto parallel = find("N48°00'");
        const auto meridian = find("E012°00'");
        ASSERT_TRUE(parallel != lines.end() && meridian != lines.end()) << angle;
        const MapProjection projection = viewport.projection(center, angle);
        for (const double lon : {10.5, 12.9})
            EXPECT_LT(distanceFrom(parallel->segment, projection.project(atDegrees(48, lon))), kHalf);
        for (const double lat : {47.5, 49.2})
            EXPECT_LT(distanceFrom(meridian->segment, projection.project(atDegrees(lat, 12))), kHalf);
    }
}

TEST(MapGrid, AFewLinesShowAtEveryRangeSizeAndAngle) {
    const std::pair<int, int> sizes[] = {{800, 370}, {480, 570}, {1280, 660}, {2176, 1500}};
    for (const auto& [width, height] : sizes)
        for (const int range : kRangeStepsNm)
            for (const double lat : {0.0, 48.0, -60.0})
                for (const int angle : {0, 45}) {
                    const auto lines =
                        gridOf(viewportOf(width, height, range, PageId::Map), atDegrees(lat, 7.3), angle);
                    const auto parallels = std::count_if(lines.begin(), lines.end(), isLatitude);
                    const auto meridians = static_cast<long>(lines.size()) - parallels;
                    EXPECT_GE(parallels, 1) << width << " " << range << " " << lat;
                    EXPECT_GE(meridians, 1) << width << " " << range << " " << lat;
                    EXPECT_GE(parallels + meridians, 5) << width << " " << range << " " << lat;
                    EXPECT_LE(parallels, 10) << width << " " << range << " " << lat;
                    EXPECT_LE(meridians, 10) << width << " " << range << " " << lat;
                    for (const GridLine& line : lines)
                        for (const Point& end : {line.segment.from, line.segment.to}) {
                            EXPECT_TRUE(std::min(end.x, end.y) >= -kHalf && end.x <= width + 1 + kHalf &&
                                        end.y <= height + 1 + kHalf);
                        }
                }
}

TEST(MapGrid, TheStepStaysWhileTheMapTurns) {
    const MapViewport viewport = viewportOf(1280, 620, 65, PageId::Map);
    for (int angle = 0; angle < 360; angle += 10)
        for (const std::string& label : labelsOf(gridOf(viewport, atDegrees(48.35, 11.8), angle)))
            EXPECT_TRUE(label.ends_with(label[0] == 'N' ? "0'" : "00'")) << label << " " << angle;
}

TEST(MapGrid, CrossesTheDateLine) {
    const std::vector<std::string> labels = labelsOf(gridOf(viewportOf(1280, 660, 100), atDegrees(-17.7, 179.6)));
    for (const char* label : {"E179°00'", "E180°00'", "W179°00'", "S18°00'"})
        EXPECT_EQ(std::count(labels.begin(), labels.end(), label), 1) << label;
    const std::vector<std::string> fromTheEast = labelsOf(gridOf(viewportOf(1280, 660, 100), atDegrees(-17.7, -179.6)));
    EXPECT_EQ(std::count(fromTheEast.begin(), fromTheEast.end(), "E180°00'"), 1);
}

TEST(MapGrid, EndsAtThePoleAndHalfATurnAway) {
    const MapViewport viewport = viewportOf(1280, 660, 1000);
    const GeoPoint center = atDegrees(85.2, 20);
    const std::vector<GridLine> lines = gridOf(viewport, center);
    const MapProjection projection = viewport.projection(center, 0);
    const double pole = projection.project(atDegrees(90, 20)).y;
    const double west = projection.project(atDegrees(85.2, -159.9999)).x;
    const double east = projection.project(atDegrees(85.2, 199.9999)).x;
    ASSERT_FALSE(lines.empty());
    for (const GridLine& line : lines) {
        for (const Point end : {line.segment.from, line.segment.to})
            EXPECT_TRUE(end.y >= pole - kHalf && end.x >= west - 0.1 && end.x <= east + 0.1) << line.label;
    }
    const std::vector<std::string> labels = labelsOf(lines);
    EXPECT_EQ(std::count(labels.begin(), labels.end(), "N90°00'"), 1);
    // So close to it that all longitudes are one, there is nothing to draw.
    EXPECT_TRUE(gridOf(viewport, atDegrees(89.9, 20)).empty());
    EXPECT_TRUE(gridOf(viewport, atDegrees(-90, 0)).empty());
}

}}  // namespace korvel
