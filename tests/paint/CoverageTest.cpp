#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "paint/Clip.h"
#include "paint/ground/Coverage.h"
#include "paint/ground/GroundColors.h"

namespace korvel { namespace {

using Ring = std::vector<Point>;

/// The area of a polygon with its inside on the left as on a map, in pixels.
double area(const Ring& ring) {
    double sum = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point from = ring[i];
        const Point to = ring[(i + 1) % ring.size()];
        sum += to.x * from.y - from.x * to.y;
    }
    return sum / 2;
}

void add(Coverage& coverage, const Ring& ring) {
    std::vector<FinePoint> points;
    for (const Point point : ring) points.push_back(toFine(point));
    coverage.ring(points);
}

int at(const Coverage& coverage, int x, int y) {
    std::vector<std::uint16_t> row(static_cast<std::size_t>(coverage.width()));
    return coverage.row(y, row) ? row[static_cast<std::size_t>(x)] : 0;
}

TEST(Coverage, IsTheAreaInsideEachPixel) {
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        // A star around the raster's middle, reaching far out of it at times: exact by clipping to each pixel.
        const double reach = round % 3 == 0 ? 300 : 14;
        Ring ring;
        const int corners = 3 + round % 9;
        std::uniform_real_distribution<double> share(0.2, 1);
        for (int i = 0; i < corners; ++i) {
            const double angle = -2 * 3.14159265358979 * i / corners;
            const double away = reach * share(random);
            // On the raster's own steps, so that nothing is lost by rounding.
            ring.push_back({std::round((10 + away * std::cos(angle)) * 256) / 256,
                std::round((8 + away * std::sin(angle)) * 256) / 256});
        }
        Coverage coverage(20, 16);
        add(coverage, ring);
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 20; ++x) {
                const Ring inside = clipPolygon(ring, {static_cast<double>(x), static_cast<double>(y), 1, 1});
                const double exact = inside.empty() ? 0 : area(inside);
                EXPECT_NEAR(at(coverage, x, y), exact * 256, 4) << round << " " << x << " " << y;
            }
    }
}

TEST(Coverage, NeighboursShowNoSeamAtAnyAngle) {
    // Tiles like a map's, turned and shifted: every pixel inside the whole is all inside.
    for (int angle = 0; angle < 360; angle += 7) {
        Coverage coverage(60, 60);
        const double sine = std::sin(angle * 0.0174533);
        const double cosine = std::cos(angle * 0.0174533);
        const auto corner = [&](int column, int row) -> Point {
            const double x = column * 13.37 - 100;
            const double y = row * 17.71 - 100;
            return {30 + x * cosine - y * sine, 30 + x * sine + y * cosine};
        };
        for (int column = 0; column < 15; ++column)
            for (int row = 0; row < 12; ++row)
                add(coverage, {corner(column, row), corner(column, row + 1), corner(column + 1, row + 1),
                                  corner(column + 1, row)});
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 60; ++x) ASSERT_EQ(at(coverage, x, y), 256) << angle << " " << x << " " << y;
    }
}

TEST(Coverage, LakesIslandsAndEmptiness) {
    const auto square = [](double from, double to, bool water) {
        Ring ring{{from, from}, {from, to}, {to, to}, {to, from}};
        if (water) std::reverse(ring.begin(), ring.end());
        return ring;
    };
    Coverage coverage(40, 40);
    add(coverage, square(-50, 35, false));
    add(coverage, square(10, 30, true));
    add(coverage, square(15, 25, false));
    const int expected[] = {256, 256, 0, 256, 0, 256, 0};
    const int places[] = {0, 9, 12, 20, 27, 32, 38};
    for (std::size_t i = 0; i < std::size(places); ++i)
        EXPECT_EQ(at(coverage, places[i], places[i]), expected[i]) << places[i];
    coverage.clear();
    for (int y = 0; y < 40; ++y) EXPECT_EQ(at(coverage, 20, y), 0);
    add(coverage, {{1e300, 1}, {-1e300, 5}, {std::nan(""), 7}});
    add(coverage, {});
    coverage.band({5, 20.5}, {35, 20.5}, 1);
    coverage.band({1, 1}, {1, 1}, 9);
    Coverage(0, 0).ring({});
    EXPECT_EQ(at(coverage, 20, 20), 256) << "a line one pixel wide on a row";
}

TEST(Coverage, ColoursMixWithALineAlongTheShore) {
    Coverage coverage(4, 1);
    add(coverage, {{1.5, -1}, {1.5, 2}, {9, 2}, {9, -1}});
    std::vector<std::uint32_t> pixels(4);
    const ShorePalette day(Rgb(238, 232, 170), Rgb(102, 153, 255));
    day.paint(coverage, pixels);
    EXPECT_EQ(pixels[0], 0xFF6699FFU);
    EXPECT_EQ(pixels[2], 0xFFEEE8AAU);
    EXPECT_LT(pixels[1] >> 8U & 0xFFU, 0x99U) << "darker than either";
    paintOver(coverage, Rgb(255, 0, 0), 1, pixels);
    EXPECT_EQ(pixels[3], 0xFFFF0000U);
    EXPECT_EQ(pixels[0], 0xFF6699FFU);
    paintAround(coverage, Rgb(1, 2, 3), pixels);
    EXPECT_EQ(pixels[0], 0xFF010203U);
    EXPECT_EQ(pixels[3], 0xFFFF0000U);
    const ShorePalette night(Rgb(0, 0, 0), Rgb(0, 0, 102));
    EXPECT_GT(lightOf(night.shore()), lightOf(Rgb(0, 0, 102))) << "or lighter where the land is dark";
}

}}  // namespace korvel
