#include <cmath>
#include <fstream>
#include <functional>

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "geo/Geodesy.h"
#include "geo/Units.h"
#include "ground/MemoryFile.h"
#include "ground/SmallMap.h"
#include "ground/airspace/AirspaceSet.h"
#include "ground/basemap/BaseMap.h"
#include "ground/profile/AirspacesAlong.h"
#include "ground/profile/GroundAlong.h"
#include "ground/terrain/TerrainStore.h"

namespace korvel { namespace {

GeoPoint at(double lat, double lon) { return {lat * kDegToRad, lon * kDegToRad}; }

ProfileLine lineOf(std::vector<GeoPoint> way, std::size_t steps) {
    double nm = 0;
    for (std::size_t i = 0; i + 1 < way.size(); ++i) nm += DistanceNm(way[i], way[i + 1]);
    return profileLine(way, nm, steps);
}

TEST(ProfileLine, FollowsTheGreatCirclesAndGoesStraightOn) {
    const std::vector<GeoPoint> way{at(0, 0), at(0, 0), at(1, 0), at(1, 1)};
    const ProfileLine line = profileLine(way, 150, 150);
    ASSERT_EQ(line.points.size(), 151U);
    EXPECT_NEAR(line.lengthNm(), 150, 1e-9);
    EXPECT_NEAR(line.points[30].lat * kRadToDeg, 0.5, 1e-9);
    EXPECT_NEAR(DistanceNm(line.points[90], at(1, 0)), 30, 1e-6) << "beyond the corner";
    EXPECT_NEAR(line.points[90].lat * kRadToDeg, 1, 1e-3);
    EXPECT_NEAR(DistanceNm(line.points[150], at(1, 1)), 150 - 60 - DistanceNm(at(1, 0), at(1, 1)), 1e-6);
    EXPECT_GT(line.points[150].lon, at(1, 1).lon);
    const ProfileLine across = lineOf({at(10, 179.5), at(10, -179.5)}, 10);
    EXPECT_NEAR(across.points.back().lon * kRadToDeg, 180.5, 1e-9) << "goes on";
    for (const auto& none : {profileLine({}, 10, 5), profileLine(std::vector{at(1, 1), at(1, 1)}, 10, 5),
             profileLine(way, 0, 5), profileLine(way, 10, 0)})
        EXPECT_TRUE(none.points.empty());
}

/// A tile at 500 m with a ridge of one post's width at 8.5 E, 2000 m high, and a gap behind 8.8 E.
class GroundAlongTest : public testing::Test {
 protected:
    GroundAlongTest() {
        std::string bytes;
        for (int row = 0; row < 1201; ++row)
            for (int column = 0; column < 1201; ++column) {
                const auto height = static_cast<unsigned>(column == 600 ? 2000 : column > 960 ? -32768 : 500);
                bytes += static_cast<char>(height >> 8U & 0xFFU);
                bytes += static_cast<char>(height & 0xFFU);
            }
        folder_.write("N47E008.hgt", bytes);
        terrain_.open({folder_.path()});
        EXPECT_EQ(map_.open(std::make_unique<MemoryFile>(smallMap()), "small.map"), "");
    }
    std::vector<GroundSample> along(const ProfileLine& line, BaseMap* map = nullptr) {
        terrain_.want(TerrainStore::Purpose::Profile, tilesAlong(line), line.stepNm * 1852);
        terrain_.waitUntilSettled();
        return groundAlong(line, &terrain_, map);
    }

    TempFolder folder_;
    TerrainStore terrain_;
    BaseMap map_;
};

TEST_F(GroundAlongTest, NoRidgeIsLostBetweenTwoPoints) {
    for (const std::size_t steps : {7U, 40U, 200U, 333U}) {
        const ProfileLine line = lineOf({at(47.5, 8.1), at(47.4, 8.75)}, steps);
        const std::vector<GroundSample> ground = along(line);
        ASSERT_EQ(ground.size(), steps + 1);
        double highest = 0;
        for (std::size_t i = 0; i < ground.size(); ++i) {
            ASSERT_TRUE(ground[i].isKnown) << i;
            highest = std::max(highest, *ground[i].highestFt);
            const double fromRidgeNm =
                std::abs(line.points[i].lon * kRadToDeg - 8.5) * 60 * std::cos(line.points[i].lat);
            // Coarse grids keep a summit over the width of their cells.
            if (fromRidgeNm > 2 * line.stepNm + 0.1) {
                EXPECT_NEAR(*ground[i].highestFt, 500 * kFeetPerMetre, 1) << steps << " " << i;
            }
        }
        EXPECT_NEAR(highest, 2000 * kFeetPerMetre, 1) << steps;
    }
}

TEST_F(GroundAlongTest, WhatNobodyMeasuredIsNotLowAndTheSeaIsKnown) {
    const ProfileLine line = lineOf({at(47.5, 8.7), at(47.5, 9.4)}, 70);
    for (BaseMap* map : {static_cast<BaseMap*>(nullptr), &map_}) {
        const std::vector<GroundSample> ground = along(line, map);
        EXPECT_TRUE(ground[5].isKnown && !ground[5].isSea);
        EXPECT_FALSE(ground[20].isKnown) << "in the gap";
        EXPECT_EQ(ground[20].highestFt, std::nullopt);
        EXPECT_EQ(ground[60].isKnown, map != nullptr) << "no tile, but the map knows the sea";
        EXPECT_EQ(ground[60].isSea, map != nullptr);
        EXPECT_EQ(ground[60].highestFt, map != nullptr ? std::optional(0.0) : std::nullopt);
    }
    const ProfileLine polar = lineOf({at(-75.01, -90.5), at(-75.01, -90.02)}, 20);
    const auto ground = along(polar, &map_);
    EXPECT_TRUE(ground.front().isSea);
    EXPECT_FALSE(ground.back().isKnown) << "water on high ground is a lake";
    EXPECT_FALSE(along(lineOf({at(-75, 15), at(-74, 15)}, 5), &map_).front().isKnown) << "land without a tile";
}

Airspace airspaceOf(const std::string& name, std::vector<AirspaceRing> rings) {
    Airspace airspace;
    airspace.name = name;
    airspace.rings = std::move(rings);
    return airspace;
}
AirspaceRing box(double south, double west, double north, double east) {
    return {at(south, west), at(south, east), at(north, east), at(north, west)};
}
std::string slicesOf(const ProfileLine& line, std::vector<Airspace> airspaces) {
    AirspaceSet set;
    set.assign(std::move(airspaces));
    std::string words;
    for (const AirspaceSlice& slice : airspacesAlong(line, &set)) {
        EXPECT_TRUE(slice.airspace.rings.empty());
        words += slice.airspace.name + " " + std::to_string(RoundToInt(slice.fromNm * 10)) + "-" +
                 std::to_string(RoundToInt(slice.toNm * 10)) + "; ";
    }
    return words;
}

TEST(AirspacesAlong, EachIsEnteredAndLeftWhereItsBordersLie) {
    // Northwards a minute of latitude is a mile.
    const ProfileLine north = lineOf({at(47, 8), at(48, 8)}, 20);
    const AirspaceRing whole = box(46, 7, 49, 9);
    AirspaceRing gate = box(47.2, 7, 47.8, 9);
    gate.insert(gate.begin() + 2, {at(47.4, 9), at(47.4, 7.5), at(47.6, 7.5), at(47.6, 9)});
    const struct {
        Airspace airspace;
        const char* slices;
    } cases[] = {
        {airspaceOf("MIDDLE", {box(47.25, 7.9, 47.5, 8.1)}), "MIDDLE 150-300; "},
        {airspaceOf("ALL", {whole}), "ALL 0-600; "},
        {airspaceOf("START", {box(46, 7, 47.1, 9)}), "START 0-60; "},
        {airspaceOf("TWICE", {gate}), "TWICE 120-240; TWICE 360-480; "},
        {airspaceOf("THIN", {box(47.501, 7, 47.506, 9)}), "THIN 301-304; "},
        {airspaceOf("JOINED", {box(47.1, 7, 47.3, 9), box(47.3, 7, 47.4, 9)}), "JOINED 60-240; "},
        {airspaceOf("BESIDE", {box(47.2, 8.01, 47.8, 9)}), ""},
    };
    for (const auto& one : cases) EXPECT_EQ(slicesOf(north, {one.airspace}), one.slices);
    EXPECT_TRUE(airspacesAlong(north, nullptr).empty());
    EXPECT_TRUE(airspacesAlong({}, nullptr).empty());
}

TEST(AirspacesAlong, TheLinesTurnOfTheGlobeMakesNoDifference) {
    // Rings are counted on beyond the meridian from either side.
    for (const double turn : {0.0, 360.0})
        EXPECT_EQ(slicesOf(lineOf({at(0, 179.5), at(0, -179.5)}, 33),
                      {airspaceOf("ISLE", {box(-1, 179.75 - turn, 1, 180.25 - turn)})}),
            "ISLE 150-450; ");
    EXPECT_EQ(slicesOf(lineOf({at(0, -179.5), at(0, 179.5)}, 33), {airspaceOf("ISLE", {box(-1, 179.75, 1, 180.25)})}),
        "ISLE 150-450; ");
}

}}  // namespace korvel
