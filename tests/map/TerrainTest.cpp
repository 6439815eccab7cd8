#include <fstream>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "config/Settings.h"
#include "config/texts/StatusTexts.h"
#include "geo/Geodesy.h"
#include "ground/MemoryFile.h"
#include "ground/basemap/BaseMapWriter.h"
#include "map/DayMap.h"
#include "map/feeds/GroundFeed.h"
#include "paint/ground/GroundColors.h"

namespace korvel { namespace {

/// All the world is land. From 10 to 11 N there are tiles: 9 to 10 E rises eastwards from 0 to 1200 m with a gap in its
/// south, 10 to 11 E is flat at 300 m.
class TerrainOnTheMap : public testing::Test {
 protected:
    void SetUp() override {
        BaseMapWriter writer(20260102, "Drawn by hand.\n");
        const MapSheet land{SheetKind::Land, 90, 10, 0, 0, MapSheet::kNoLimit};
        writer.addSheet(land, std::vector<BinState>(8, BinState::Land), std::vector<std::string>(8));
        ASSERT_EQ(map_.open(std::make_unique<MemoryFile>(writer.bytes()), "land.map"), "");
        write("N10E009.hgt", true);
        write("N10E010.hgt", false);
        terrain_.open({folder_.path()});
        terrain_.waitUntilSettled();
        data_.position = GeoPoint{10.5 * kDegToRad, 10 * kDegToRad};
        data_.fix3D = true;
        data_.altitudeFt = 3000;
        settings_.altMode = 1;
    }
    void write(const std::string& name, bool slope) {
        std::string bytes;
        for (int row = 0; row < 1201; ++row)
            for (int column = 0; column < 1201; ++column) {
                const auto height = static_cast<unsigned>(slope ? row > 900 ? -32768 : column : 300);
                bytes += static_cast<char>(height >> 8U & 0xFFU);
                bytes += static_cast<char>(height & 0xFFU);
            }
        std::ofstream(folder_.path() / name, std::ios::binary) << bytes;
    }
    bool update() {
        day_.viewport.chooseRange(rangeNm_);
        const bool changed = feed_.update({day_.content(data_).view, data_, settings_});
        terrain_.waitUntilSettled();
        return feed_.update({day_.content(data_).view, data_, settings_}) || changed;
    }
    /// What there is at a place: d danger, w warning, ? hatched, - the ground's own colour.
    char seen(double lat, double lon) {
        MapContent content = day_.content(data_);
        feed_.addTo(content);
        content.ground->prepare(content.view, day_.colors, 1);
        const Point at = content.view.projection.project({lat * kDegToRad, lon * kDegToRad});
        const BitmapPlace place = content.ground->place(content.view);
        const Bitmap bitmap = content.ground->bitmap();
        const int row = static_cast<int>(place.pivot.y + at.y - place.at.y);
        const int column = static_cast<int>(place.pivot.x + at.x - place.at.x);
        const auto pixel = [&](int right) {
            return bitmap.pixels[static_cast<unsigned>(row * bitmap.width + column + right)];
        };
        int reds = 0;
        int yellows = 0;
        bool stripes = false;
        for (int i = 0; i < 12; ++i) {
            const std::uint32_t red = pixel(i) >> 16U & 0xFFU;
            const std::uint32_t green = pixel(i) >> 8U & 0xFFU;
            const std::uint32_t blue = pixel(i) & 0xFFU;
            reds += red > 140 && green < 80 ? 1 : 0;
            yellows += red > 180 && green > 140 && blue < 80 ? 1 : 0;
            stripes = stripes || (red == green && green == blue && red < 180);
        }
        if (stripes) return '?';
        return reds > 6 ? 'd' : yellows > 6 ? 'w' : '-';
    }
    const Text* note() {
        MapContent content = day_.content(data_);
        feed_.addTo(content);
        return content.terrainNote;
    }

    DayMap day_{PageId::NorthUp, 600, 600, 40};
    int rangeNm_ = 40;
    TempFolder folder_;
    BaseMap map_;
    AirspaceSet airspaces_;
    TerrainStore terrain_;
    GroundFeed feed_{{&map_, &airspaces_, &terrain_}};
    CockpitData data_;
    Settings settings_;
};

TEST_F(TerrainOnTheMap, GroundIsColouredByHowNearItComesToTheAltitude) {
    const struct {
        int altitudeFt;
        const char* slope;  // at 400, 500, 800, 1100 m
        char plane;
    } cases[] = {{6000, "----", '-'}, {4400, "---w", '-'}, {3000, "--wd", '-'}, {2500, "-wdd", '-'},
        {1700, "wddd", 'w'}, {900, "dddd", 'd'}, {0, "dddd", 'd'}};
    for (const auto& [altitudeFt, slope, plane] : cases) {
        data_.altitudeFt = altitudeFt;
        update();
        std::string colors;
        for (const double metres : {400.0, 500.0, 800.0, 1100.0}) colors += seen(10.6, 9 + metres / 1200);
        EXPECT_EQ(colors, slope) << altitudeFt;
        EXPECT_EQ(seen(10.6, 10.5), plane) << altitudeFt;
    }
}

TEST_F(TerrainOnTheMap, WhatNobodyKnowsIsHatchedAndSaid) {
    update();
    EXPECT_EQ(seen(10.1, 9.5), '?') << "a gap in a tile";
    EXPECT_EQ(seen(9.9, 10.5), '?') << "no tile";
    EXPECT_EQ(seen(10.6, 10.5), '-');
    EXPECT_EQ(note(), &kStatusTexts.terrainMissing);
    rangeNm_ = 8;
    data_.position = GeoPoint{10.6 * kDegToRad, 10.5 * kDegToRad};
    update();
    EXPECT_EQ(note(), nullptr) << "all that is shown is known";
    settings_.altMode = 0;
    rangeNm_ = 40;
    update();
    EXPECT_EQ(note(), nullptr);
    EXPECT_EQ(seen(9.9, 10.5), '-');
    settings_.altMode = 1;
    rangeNm_ = 250;
    update();
    EXPECT_EQ(note(), &kStatusTexts.terrainNearOnly);
}

TEST_F(TerrainOnTheMap, NothingIsColouredWithoutAnAltitudeToTrust) {
    const auto expectNoBands = [&](const char* why) {
        update();
        EXPECT_EQ(seen(10.6, 9.9), '-') << why;
        EXPECT_EQ(note(), &kStatusTexts.terrainNoAltitude) << why;
    };
    data_.fix3D = false;
    expectNoBands("a fix in two dimensions");
    data_.fix3D = true;
    data_.altitudeFt.reset();
    expectNoBands("no altitude");
    data_.altitudeFt = 4000;
    update();
    EXPECT_EQ(seen(10.6, 9.9), 'w');
    data_.altitudeFt = 4700;
    data_.altimeterOffsetFt = 2000;
    update();
    EXPECT_EQ(seen(10.6, 9.9), 'd') << "by the receiver, whatever the altimeter reads";
}

TEST_F(TerrainOnTheMap, TheBandsMoveWithTwentyFeet) {
    update();
    EXPECT_FALSE(update());
    data_.altitudeFt = 3019;
    EXPECT_FALSE(update());
    data_.altitudeFt = 2981;
    EXPECT_FALSE(update());
    data_.altitudeFt = 3020;
    EXPECT_TRUE(update());
    data_.altitudeFt = 3001;
    EXPECT_FALSE(update());
}

}}  // namespace korvel
