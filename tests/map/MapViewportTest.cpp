#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "cockpit/Cockpit.h"
#include "config/ProfileFile.h"
#include "geo/Geodesy.h"
#include "map/MapViewport.h"
#include "platform/RegistryProfile.h"

namespace korvel { namespace {

TEST(MapViewport, LaysOutEachPage) {
    const struct {
        PageId page;
        int width, height;
        int evenWidth, evenHeight, x, y;
    } cases[] = {
        {PageId::Map, 801, 601, 802, 602, 401, 331},
        {PageId::Map, 800, 600, 800, 600, 400, 330},
        {PageId::NorthUp, 800, 600, 800, 600, 400, 300},
        {PageId::Efis, 800, 600, 800, 600, 400, 480},
        {PageId::Efis, 801, 601, 802, 602, 401, 481},
        {PageId::Attitude, 1, 0, 2, 0, 1, 30},
    };
    for (const auto& one : cases) {
        MapViewport view;
        view.setRange(25);
        view.layout(one.page, one.width, one.height);
        EXPECT_EQ(std::tuple(view.width(), view.height(), view.aircraftX(), view.aircraftY()),
            std::tuple(one.evenWidth, one.evenHeight, one.x, one.y));
        EXPECT_DOUBLE_EQ(view.pixelsPerNm(), one.y / 25.0);
    }
}

TEST(MapViewport, ZoomsAlongTheLadder) {
    const std::string paused = "Auto-zoom/view disabled for 30 secs.";
    MapViewport view;
    EXPECT_EQ(view.currentRangeNm(), 65);
    for (const int range : {40, 25, 15, 8, 4, 1}) {
        EXPECT_EQ(view.zoomIn(false), "");
        EXPECT_EQ(view.currentRangeNm(), range);
    }
    EXPECT_EQ(view.zoomIn(true), "");
    EXPECT_FALSE(view.autoZoomPaused()) << "nothing changed, nothing to pause for";
    for (const int range : {4, 8, 15, 25, 40, 65, 100, 250, 500, 1000}) {
        EXPECT_EQ(view.zoomOut(range == 1000), range == 1000 ? paused : "");
        EXPECT_EQ(view.currentRangeNm(), range);
    }
    for (int tick = 1; tick < 60; ++tick) {
        EXPECT_EQ(view.tick(), "");
        EXPECT_TRUE(view.autoZoomPaused());
    }
    EXPECT_EQ(view.tick(), "Auto-zoom/view enabled");
    EXPECT_FALSE(view.autoZoomPaused());
    EXPECT_EQ(view.tick(), "");
    EXPECT_EQ(view.zoomOut(true), "");
    EXPECT_EQ(view.currentRangeNm(), 1000);
    EXPECT_EQ(view.zoomIn(true), paused);
    view.returnToConfigured();
    EXPECT_FALSE(view.autoZoomPaused());
    EXPECT_EQ(view.currentRangeNm(), 65);
}

TEST(MapViewport, SetsRangesBetweenTheSteps) {
    MapViewport view;
    EXPECT_FALSE(view.setRange(65.9)) << "the same whole number";
    EXPECT_TRUE(view.setRange(30.7));
    EXPECT_EQ(view.currentRangeNm(), 30);
    view.zoomIn(false);
    EXPECT_EQ(view.currentRangeNm(), 25);
    view.setRange(30);
    view.zoomOut(false);
    EXPECT_EQ(view.currentRangeNm(), 40);
    for (const double unusable : {0.0, -3.0, std::nan("")}) EXPECT_FALSE(view.setRange(unusable));
    EXPECT_EQ(view.currentRangeNm(), 40);
    EXPECT_TRUE(view.setRange(1e300));
    EXPECT_EQ(view.currentRangeNm(), 1000);
    EXPECT_EQ(view.configuredRangeNm(), 65);
}

TEST(MapViewport, KeepsTheConfiguredRangeInTheProfile) {
    const TempFolder folder;
    const auto registry = openRegistryProfile();
    ProfileFile profile(folder.path(), *registry);
    for (const auto& [saved, range] : {std::pair{30, 65}, {0, 65}, {1000, 1000}, {1, 1}}) {
        profile.setInt("Options", "Range", saved, true);
        MapViewport view;
        view.loadRange(profile);
        EXPECT_EQ(view.currentRangeNm(), range);
        view.zoomIn(false);
        view.saveRange(profile);
        EXPECT_EQ(profile.getInt("Options", "Range", 0), range) << "zooming is not saved";
        view.chooseRange(15);
        view.saveRange(profile);
        EXPECT_EQ(profile.getInt("Options", "Range", 0), 15);
    }
}

TEST(MapProjection, PlacesPoints) {
    struct Case {
        GeoPoint center, point;
        int angleDeg;
        double dx, dy;
    };
    const double cos48 = std::cos(48 * kDegToRad);
    const double cos47 = std::cos(47 * kDegToRad);
    const Case cases[] = {
        {atDegrees(0, 0), atDegrees(0, 0), 0, 0, 0},
        {atDegrees(47.6, 8), atDegrees(48.6, 8), 0, 0, -600},
        {atDegrees(47.6, 8), atDegrees(47.6, 9), 0, 600 * cos48, 0},
        {atDegrees(47.4, 8), atDegrees(47.4, 9), 0, 600 * cos47, 0},
        {atDegrees(-47.6, 8), atDegrees(-47.6, 7), 0, -600 * cos48, 0},
        {atDegrees(0, 179.75), atDegrees(0, -179.75), 0, 300, 0},
        {atDegrees(0, -179.75), atDegrees(0, 179.75), 0, -300, 0},
        // Flying east, what lies east is ahead and what lies north is to the left.
        {atDegrees(0, 0), atDegrees(0, 1), 90, 0, -600},
        {atDegrees(0, 0), atDegrees(1, 0), 90, -600, 0},
        {atDegrees(0, 0), atDegrees(1, 0), -90, 600, 0},
        {atDegrees(0, 0), atDegrees(1, 0), 30, -300, -600 * std::cos(30 * kDegToRad)},
        {atDegrees(0, 0), atDegrees(1, 0), 720, 0, -600},
    };
    for (const Case& one : cases) {
        const MapProjection projection(one.center, {400, 330}, 10, one.angleDeg);
        const Point pixel = projection.project(one.point);
        EXPECT_NEAR(pixel.x, 400 + one.dx, 1e-6);
        EXPECT_NEAR(pixel.y, 330 + one.dy, 1e-6);
    }
}

TEST(MapProjection, RastersAgreeAndTheWayBackLeadsHome) {
    std::mt19937 random(20240229);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same every run
    std::uniform_real_distribution<double> lat(-84, 84);
    std::uniform_real_distribution<double> lon(-180, 180);
    std::uniform_real_distribution<double> offset(-2, 2);
    std::uniform_int_distribution<int> angle(-400, 400);
    for (int i = 0; i < 2000; ++i) {
        MapViewport view;
        view.layout(PageId::Map, 1280, 800);
        const GeoPoint center = atDegrees(lat(random), lon(random));
        const GeoPoint point{center.lat + offset(random) * kDegToRad, center.lon + offset(random) * kDegToRad};
        const MapProjection projection = view.projection(center, angle(random));
        const Point exact = projection.project(point);
        const auto [x, y] = projection.projectPixel(point);
        ASSERT_LE(std::abs(exact.x - x), 0.5 + 1e-9);
        ASSERT_LE(std::abs(exact.y - y), 0.5 + 1e-9);
        const GeoPoint back = projection.unproject(exact);
        ASSERT_NEAR(back.lat, point.lat, 1e-12);
        ASSERT_GE(back.lon, -kPi);
        ASSERT_LT(back.lon, kPi);
        ASSERT_NEAR(std::remainder(back.lon - point.lon, kTwoPi), 0, 1e-10);
    }
}

TEST(MapProjection, HoldsAtThePolesAndBeforeTheFirstLayout) {
    const MapProjection pole(atDegrees(90, 20), {400, 330}, 10, 0);
    EXPECT_NEAR(pole.project(atDegrees(89, -160)).y, 930, 1e-6);
    const GeoPoint beyond = pole.unproject({4000, 0});
    EXPECT_DOUBLE_EQ(beyond.lat, kPi / 2);
    EXPECT_DOUBLE_EQ(beyond.lon, 20 * kDegToRad);
    const GeoPoint early = MapViewport().projection(atDegrees(1, 2), 0).unproject({10, 10});
    EXPECT_DOUBLE_EQ(early.lat, kDegToRad);
    EXPECT_DOUBLE_EQ(early.lon, 2 * kDegToRad);
}

}}  // namespace korvel
