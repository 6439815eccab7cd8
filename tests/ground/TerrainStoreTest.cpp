#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "ground/terrain/TerrainStore.h"

namespace korvel { namespace {

constexpr int kSide = 1201;
using Shape = std::function<int(int row, int column)>;

std::string hgt(const Shape& shape, int side = kSide) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 2);
    for (int row = 0; row < side; ++row)
        for (int column = 0; column < side; ++column) {
            const auto height = static_cast<unsigned>(shape(row, column));
            bytes += static_cast<char>(height >> 8U & 0xFFU);
            bytes += static_cast<char>(height & 0xFFU);
        }
    return bytes;
}

HgtTile tileOfShape(const Shape& shape) {
    HgtTile tile;
    EXPECT_EQ(tile.read(hgt(shape), {47, 8}), "");
    return tile;
}

int plane(int row, int column) { return 1000 + column - row / 2; }

TEST(HeightPyramid, APlaneIsTheSamePlaneInEveryGrid) {
    const HgtTile tile = tileOfShape(plane);
    for (const double finest : {0.0, 200.0, 5000.0}) {
        const HeightPyramid pyramid(tile, finest);
        EXPECT_FALSE(pyramid.hasVoids());
        EXPECT_LE(pyramid.finestM(), std::max(finest, 93.0));
        for (const double metres : {0.0, 100.0, 400.0, 1500.0}) {
            const auto height = pyramid.heightAt(8.25, 47.75, metres);
            EXPECT_TRUE(height.known);
            EXPECT_NEAR(height.mean, 1000 + 300 - 150, 1.5) << finest << " " << metres;
            EXPECT_GE(height.highest, height.mean - 0.5);
        }
    }
    EXPECT_LT(HeightPyramid(tile, 5000).bytes(), 100000U);
    EXPECT_LE(HeightPyramid(tile, 200).bytes(), HeightPyramid::mostBytes(200));
    EXPECT_TRUE(HeightPyramid(tile, 0).isFineEnough(30)) << "there is nothing finer";
    EXPECT_FALSE(HeightPyramid(tile, 400).isFineEnough(200));
}

TEST(HeightPyramid, NoGridLosesASummit) {
    // The mean of so sharp a needle is nearly nothing.
    for (const auto& [needleRow, needleColumn] :
        {std::pair{601, 333}, std::pair{1, 1}, std::pair{0, 1200}, std::pair{1199, 7}}) {
        const HeightPyramid pyramid(tileOfShape([&, r = needleRow, c = needleColumn](int row, int column) {
            return row == r && column == c ? 4478 : 100;
        }),
            0);
        const double lat = 48 - needleRow / 1200.0;
        const double lon = 8 + needleColumn / 1200.0;
        for (const double metres : {0.0, 200.0, 400.0, 800.0, 1600.0}) {
            EXPECT_EQ(pyramid.heightAt(lon, lat, metres).highest, 4478) << needleRow << " " << metres;
            EXPECT_EQ(pyramid.highestIn(lat, lon, lat, lon, metres), 4478.0F) << needleRow << " " << metres;
        }
        EXPECT_LT(pyramid.heightAt(lon, lat, 1600).mean, 300);
        EXPECT_EQ(pyramid.highestIn(47, 9.01, 48, 9.5, 0), std::nullopt) << "beyond the tile";
    }
}

TEST(HeightPyramid, WhatNobodyMeasuredIsNotLow) {
    const HeightPyramid pyramid(tileOfShape([](int row, int column) {
        if (row == 300 && column == 300) return 3000;
        return row > 200 && row < 400 && column > 200 && column < 400 ? int{HgtTile::kUnknown} : 50;
    }),
        0);
    EXPECT_TRUE(pyramid.hasVoids());
    const double lat = 48 - 300 / 1200.0;
    for (const double metres : {0.0, 400.0, 1500.0}) {
        EXPECT_FALSE(pyramid.heightAt(8.29, lat, metres).known) << metres;
        EXPECT_TRUE(pyramid.heightAt(8.6, lat, metres).known);
        EXPECT_EQ(pyramid.heightAt(8.25, lat, metres).highest, 3000) << "the summit in the gap stands";
    }
}

class StoreTest : public testing::Test {
 protected:
    void write(const std::string& name, const std::string& bytes) {
        std::ofstream(folder_.path() / name, std::ios::binary) << bytes;
    }
    void want(std::vector<TileCorner> corners, double metres = 100) {
        store_.want(TerrainStore::Purpose::Map, std::move(corners), metres);
        store_.waitUntilSettled();
    }
    static GeoPoint at(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

    TempFolder folder_;
    TerrainStore store_;
};

TEST_F(StoreTest, WhatIsWantedComesAndADamagedTileIsNone) {
    write("N47E008.hgt", hgt(plane));
    write("N47W180.hgt", hgt([](int, int) { return 700; }));
    write("N47E179.hgt", hgt([](int, int) { return 500; }));
    write("S01E010.hgt", "too short");
    store_.open({folder_.path()});
    store_.waitUntilSettled();
    EXPECT_EQ(store_.tile({47, 8}).state, TerrainStore::State::Awaited);
    EXPECT_EQ(store_.tile({47, 9}).state, TerrainStore::State::None);
    EXPECT_EQ(store_.heightFt(at(47.5, 8.5)), std::nullopt);
    const auto before = store_.revision();
    want({{47, 8}, {47, 9}, {47, 179}, {47, -180}, {-1, 10}}, 200);
    EXPECT_EQ(store_.revision(), before + 4);
    EXPECT_EQ(store_.tile({47, 8}).state, TerrainStore::State::Loaded);
    EXPECT_EQ(store_.tile({-1, 10}).state, TerrainStore::State::None);
    ASSERT_EQ(store_.problems().size(), 1U);
    EXPECT_TRUE(store_.problems().front().starts_with("S01E010.hgt: "));
    EXPECT_NEAR(store_.heightFt(at(47.75, 8.25)).value(), 1150 * kFeetPerMetre, 3);
    EXPECT_NEAR(store_.highestFt(at(47.5, 179.999), 1).value(), 700 * kFeetPerMetre, 1) << "across the meridian";
    EXPECT_NEAR(store_.highestFt(at(47.5, -179.999), 1).value(), 700 * kFeetPerMetre, 1);
    EXPECT_NEAR(store_.highestFt(at(47.5, 179.9), 1).value(), 500 * kFeetPerMetre, 1);
    EXPECT_EQ(store_.highestFt(at(10, 10), 5), std::nullopt);
    store_.open({});
    store_.waitUntilSettled();
    EXPECT_EQ(store_.tile({47, 8}).state, TerrainStore::State::None) << "other folders";
    EXPECT_EQ(store_.bytes(), 0U);
}

TEST_F(StoreTest, StaysWithinItsMemoryAndKeepsWhatIsWanted) {
    const std::string flat = hgt([](int, int) { return 10; }, 3601);
    std::vector<TileCorner> corners;
    for (int east = 0; east < 2; ++east) {
        corners.push_back({10, east});
        write(nameOfTile(corners.back()) + ".hgt", flat);
    }
    store_.open({folder_.path()});
    want({corners[0]}, 30);
    EXPECT_EQ(store_.tile(corners[0]).heights->finestM(), 60 * 1852 / 3600.0);
    want(corners, 30);
    for (const TileCorner corner : corners)
        EXPECT_EQ(store_.tile(corner).state, TerrainStore::State::Loaded) << corner.west << ": coarser, but there";
    EXPECT_LE(store_.bytes(), TerrainStore::kMostBytes);
    store_.want(TerrainStore::Purpose::Alarms, {corners[1]}, 30);
    want({corners[0]}, 30);
    EXPECT_LT(store_.tile(corners[1]).heights->finestM(), 62) << "each half as fine as wanted";
    EXPECT_LE(store_.bytes(), TerrainStore::kMostBytes);
}

}}  // namespace korvel
