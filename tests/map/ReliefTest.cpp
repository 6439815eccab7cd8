#include <cmath>

#include <gtest/gtest.h>

#include "geo/Geodesy.h"
#include "ground/MemoryFile.h"
#include "ground/basemap/BaseMapWriter.h"
#include "ground/basemap/CoarseRelief.h"
#include "map/DayMap.h"
#include "map/ground/GroundRaster.h"
#include "map/ground/ReliefPatch.h"
#include "paint/ground/GroundColors.h"

namespace korvel { namespace {

/// All land, with a plateau of 2000 m between 50 and 52 N, 50 and 52 E and one between 179 E and 179 W on the equator.
std::string plateauMap() {
    BaseMapWriter writer(20260102, "Drawn by hand.\n");
    const MapSheet land{SheetKind::Land, 90, 10, 0, 0, MapSheet::kNoLimit};
    writer.addSheet(land, std::vector<BinState>(8, BinState::Land), std::vector<std::string>(8));
    std::vector<ReliefTile> tiles(static_cast<std::size_t>(kReliefColumns) * kReliefRows);
    const auto raise = [&tiles](int south, int west, int rows, int columns) {
        for (int row = (south + 90) * 12; row < (south + 90) * 12 + rows; ++row)
            for (int column = (west + 180) * 12; column < (west + 180) * 12 + columns; ++column) {
                const int across = column % (360 * 12);
                tiles[static_cast<unsigned>(row / kReliefCells * kReliefColumns + across / kReliefCells)]
                     [static_cast<unsigned>(row % kReliefCells * kReliefCells + across % kReliefCells)] = 100;
            }
    };
    raise(50, 50, 24, 24);
    raise(-1, 179, 24, 24);
    std::vector<std::string> packed;
    for (const ReliefTile& tile : tiles) packed.push_back(encodeRelief(tile));
    writer.setRelief(packed);
    return writer.bytes();
}

class Relief : public testing::Test {
 protected:
    void SetUp() override { ASSERT_EQ(map_.open(std::make_unique<MemoryFile>(plateauMap()), "relief.map"), ""); }

    BaseMap map_;
};

TEST_F(Relief, HeightsLieWhereTheirCellsAreAcrossTilesAndTheMeridian) {
    const ReliefPatch near(map_, {.south = 48, .west = 48, .north = 54, .east = 54});
    const ReliefPatch pacific(map_, {.south = -3, .west = 176, .north = 3, .east = 184});
    const ReliefPatch world(map_, {.south = -90, .west = -180, .north = 90, .east = 180});
    const struct {
        const ReliefPatch& patch;
        double lat, lon;
        float metres;
    } places[] = {{near, 51, 51, 2000}, {near, 49.7, 51, 0}, {near, 51, 52.3, 0}, {near, 50, 51, 1000},
        {near, 51, 52, 1000}, {pacific, 0, 180, 2000}, {pacific, 0.5, 180.7, 2000}, {pacific, 0, 181, 1000},
        {pacific, 0, 178.7, 0}, {world, 51, 51, 2000}, {world, 45, 51, 0}, {world, 90, 0, 0}};
    for (const auto& [patch, lat, lon, metres] : places)
        EXPECT_NEAR(patch.heightAt(lon, lat), metres, 1) << lat << " " << lon;
    EXPECT_EQ(map_.problems().size(), 0U);
}

TEST_F(Relief, SlopesTowardsTheNorthWestAreLitHoweverTheMapIsTurned) {
    DayMap day(PageId::NorthUp, 600, 600, 250);
    for (const int angle : {0, 45, 90, 200, 315}) {
        const MapView view(day.viewport, {51 * kDegToRad, 51 * kDegToRad}, angle, day.canvas.area());
        GroundRaster raster(map_);
        raster.draw(600, 600, GroundGrid(view.projection, {0, 0}, 1), {.parts = {}, .rangeNm = 250}, day.colors);
        const auto light = [&](double lat, double lon) {
            const auto [x, y] = view.projection.projectPixel({lat * kDegToRad, lon * kDegToRad});
            const std::uint32_t pixel = raster.bitmap().pixels[static_cast<unsigned>(y * 600 + x)];
            return lightOf(Rgb(pixel >> 16U & 0xFFU, pixel >> 8U & 0xFFU, pixel & 0xFFU));
        };
        const double flat = lightOf(day.colors[ColorKey::GeoLand]);
        EXPECT_NEAR(light(47, 51), flat, 2) << "low and flat";
        EXPECT_LT(light(51, 51), flat - 15) << "high";
        EXPECT_GT(light(52, 50), light(50, 52) + 30) << angle;
        EXPECT_GT(light(51, 50), light(51, 52) + 20) << angle;
        EXPECT_GT(light(52, 51), light(50, 51) + 20) << angle;
    }
}

TEST_F(Relief, TheColourSaysNothingWhereItIsSwitchedOff) {
    DayMap day(PageId::NorthUp, 300, 300, 250);
    const MapView view(day.viewport, {51 * kDegToRad, 51 * kDegToRad}, 0, day.canvas.area());
    GroundRaster raster(map_);
    GroundScene scene{.parts = {}, .rangeNm = 250};
    scene.parts.relief = false;
    raster.draw(300, 300, GroundGrid(view.projection, {0, 0}, 1), scene, day.colors);
    for (const std::uint32_t pixel : raster.bitmap().pixels) ASSERT_EQ(pixel, toPixel(day.colors[ColorKey::GeoLand]));
}

TEST(LandTint, NightStaysDarkAndDayLeavesSymbolsTheirContrast) {
    const auto lightAt = [](const LandTint& tint, double metres, double light) {
        const std::uint32_t pixel = tint.at(metres, light);
        return lightOf(Rgb(pixel >> 16U & 0xFFU, pixel >> 8U & 0xFFU, pixel & 0xFFU));
    };
    const ColorValue highest = Rgb(204, 102, 51);
    const LandTint night(Rgb(0, 0, 0), highest);
    const LandTint day(Rgb(238, 232, 170), highest);
    EXPECT_EQ(night.at(0, 0), toPixel(Rgb(0, 0, 0)));
    EXPECT_EQ(day.at(-400, 0), toPixel(Rgb(238, 232, 170)));
    EXPECT_NE(day.at(9000, 0), toPixel(highest)) << "stops short of it";
    EXPECT_EQ(day.at(9000, 0), day.at(4600, 0));
    for (int metres = 0; metres < 9000; metres += 100) {
        for (const double light : {-1.0, 0.0, 1.0}) EXPECT_LT(lightAt(night, metres, light), 100) << metres;
        EXPECT_GE(lightAt(night, metres, 1), lightAt(night, metres, 0));
        EXPECT_LT(lightAt(day, metres, -1), lightAt(day, metres, 0));
    }
}

}}  // namespace korvel
