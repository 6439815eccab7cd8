#include <fstream>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "base/TextNumbers.h"
#include "cockpit/ObstacleText.h"
#include "config/Settings.h"
#include "geo/Geodesy.h"
#include "ground/obstacles/ObstacleSet.h"
#include "map/DayMap.h"
#include "map/feeds/ObstacleFeed.h"
#include "map/layers/ObstacleLayer.h"
#include "paint/B612Metrics.h"

namespace korvel { namespace {

class ObstaclesOnTheMap : public testing::Test {
 protected:
    ObstaclesOnTheMap() {
        data_.position = GeoPoint{47 * kDegToRad, 8 * kDegToRad};
        data_.altitudeFt = 2600;
        data_.altimeterOffsetFt = 100;
        data_.fix3D = true;
    }
    void load(std::string_view rows) {
        std::ofstream(folder_.path() / "o.csv", std::ios::binary) << "name,lat,lon,agl,amsl\n" << rows;
        set_.load({&folder_.path(), 1});
    }
    /// The names that the feed brings, in their order.
    std::string shown(int rangeNm) {
        day_.viewport.chooseRange(rangeNm);
        feed_.update({day_.content(data_).view, data_, settings_});
        std::string names;
        for (const Obstacle& each : feed_.shown()) names += each.name + ' ';
        return names;
    }
    std::vector<ObstacleLayer::Mark> marks(int rangeNm) {
        shown(rangeNm);
        MapContent content = day_.content(data_);
        feed_.addTo(content);
        ObstacleLayer layer(content);
        LabelRoom room(content.view.area);
        layer.layOut(B612Metrics(), room);
        return layer.marks();
    }

    TempFolder folder_;
    ObstacleSet set_;
    ObstacleFeed feed_{&set_};
    Settings settings_;
    CockpitData data_;
    DayMap day_{PageId::NorthUp, 800, 480, 8};
};

TEST_F(ObstaclesOnTheMap, BringsWhatTheSettingsLetShowTheTallestFirst) {
    load(
        "Low,47.01,8,450,2900\nMast,47.02,8,600,2000\nGroup,47.0202,8.0008,900,1990\nChurch,47.03,8,500,2500\n"
        "Far,48.3,8,900,9000\n");
    EXPECT_EQ(shown(8), "Church Mast ") << "500 ft by default; a group within 100 m is its highest";
    EXPECT_EQ(shown(40), "") << "too far out";
    settings_.minObstacleHeight = 0;
    EXPECT_EQ(shown(8), "Low Church Mast ");
    settings_.minObstacleHeight = 6;
    EXPECT_EQ(shown(25), "Mast ") << "what lies beyond the view stays out";
    data_.position->lat += 1.2 * kDegToRad;
    EXPECT_EQ(shown(8), "Far ") << "the view has moved";
    settings_.mapMask |= 1 << 15;
    EXPECT_EQ(shown(8), "");
    settings_.mapMask &= ~(1 << 15);
    EXPECT_EQ(shown(8), "Far ");
    load("New,48.2,8,900,1000\n");
    EXPECT_TRUE(feed_.hasNews());
    EXPECT_EQ(shown(8), "New ");
}

TEST_F(ObstaclesOnTheMap, TellsDangerByTheAltitudeAboveSea) {
    // Flown at 2500 ft by the receiver, whatever the altimeter says.
    load("A,47.05,8,1100,2401\nB,47.03,8,600,2400\nC,47.01,8,600,1501\nD,46.99,8,600,1500\n");
    const auto flown = marks(8);
    ASSERT_EQ(flown.size(), 4U);
    using enum ObstacleLevel;
    const ObstacleLevel levels[] = {Danger, Caution, Caution, Below};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(flown[i].level, levels[i]) << i;
    EXPECT_TRUE(flown[0].tall && !flown[1].tall);
    EXPECT_EQ(flown[0].words + flown[3].words, "24011500");
    EXPECT_EQ(marks(25)[2].words + marks(25)[3].words, "1501") << "farther out only what is near in height";
    data_.altUnit = 1;
    EXPECT_EQ(marks(8)[0].words, "732");
    settings_.mapMask &= ~(1 << 26);
    EXPECT_EQ(marks(8)[0].words, "");
    data_.fix3D = false;
    EXPECT_EQ(marks(8)[0].level, Below) << "no altitude, no colour";
}

TEST_F(ObstaclesOnTheMap, ManyAreCutAtTheTallest) {
    std::string rows;
    for (int row = 0; row < 20; ++row)
        for (int column = 0; column < 20; ++column)
            rows += "O," + formatFixed(46.97 + 0.003 * column, 4) + ',' + formatFixed(7.95 + 0.005 * row, 4) + ",600," +
                    formatInt(1000 + 20 * row + column) + '\n';
    load(rows);
    EXPECT_EQ(marks(8).size(), ObstacleLayer::kMostShown);
    EXPECT_EQ(feed_.shown().front().topFt, 1399);
    const auto projection = day_.content(data_).view.projection;
    const Point foot = projection.project(feed_.shown()[7].position);
    EXPECT_EQ(obstacleAt(feed_.shown(), projection, {foot.x + 2, foot.y}, 20), &feed_.shown()[7]);
    EXPECT_EQ(obstacleAt(feed_.shown(), projection, {foot.x + 2000, foot.y}, 20), nullptr);
}

TEST(ObstacleText, SaysWhatIsKnown) {
    const Obstacle tower{
        .position = {0.8, 0.1}, .aglFt = 605, .elevationFt = {}, .topFt = 1004, .name = "TOWER", .isLit = true};
    EXPECT_EQ(obstacleName(tower), "TOWER");
    EXPECT_EQ(obstacleText(tower, 0), "top 1004 ft, 605 ft above ground  lit");
    const Obstacle pole{.position = {}, .aglFt = 10, .elevationFt = {}, .topFt = 10, .name = "", .isVerified = false};
    EXPECT_EQ(obstacleName(pole), "Obstacle");
    EXPECT_EQ(obstacleText(pole, 1), "top 3 m, 3 m above ground  unverified");
}

}}  // namespace korvel
