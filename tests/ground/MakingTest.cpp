#include <cmath>

#include <gtest/gtest.h>

#include "tools/basemap/BinRings.h"
#include "tools/basemap/CityList.h"
#include "tools/basemap/Simplify.h"

namespace korvel::making { namespace {

constexpr int kEnd = kBinEnd;

ShoreChain chain(int entry, int exit, RawLine points, int level = 1, double areaKm2 = 1e6) {
    return {std::move(points), entry, exit, level, areaKm2};
}

/// Twice the area that lies on the left of the ring, in bins.
double area(const RawLine& ring) {
    double sum = 0;
    RawPoint from = ring.back();
    for (const RawPoint to : ring) {
        sum += static_cast<double>(from.x) * to.y - static_cast<double>(to.x) * from.y;
        from = to;
    }
    return sum / 2 / kEnd / kEnd;
}

TEST(MakingMaps, ShoresCloseAlongTheEdgesWithLandOnTheLeft) {
    const int half = kEnd / 2;
    struct Case {
        const char* what;
        std::vector<ShoreChain> chains;
        bool background;
        std::vector<double> areas;
    };
    const Case cases[] = {
        {"nothing", {}, false, {}},
        {"all land", {}, true, {1}},
        {"the west half", {chain(0, 2, {{half, 0}, {half, kEnd}})}, false, {0.5}},
        {"the east half", {chain(2, 0, {{half, kEnd}, {half, 0}})}, false, {0.5}},
        {"all but a corner", {chain(3, 0, {{0, half}, {half, 0}})}, false, {0.875}},
        {"a corner", {chain(0, 3, {{half, 0}, {0, half}})}, false, {0.125}},
        {"two ends of an isthmus", {chain(0, 1, {{half, 0}, {kEnd, half}}), chain(2, 3, {{half, kEnd}, {0, half}})},
            false, {0.75}},
        {"two corners", {chain(1, 0, {{kEnd, half}, {half, 0}}), chain(3, 2, {{0, half}, {half, kEnd}})}, false,
            {0.125, 0.125}},
        {"a bay of one side", {chain(0, 0, {{kEnd - 100, 0}, {half, half}, {100, 0}})}, false, {0.2492}},
        {"a lake in all land", {chain(4, 4, {{100, 100}, {100, half}, {half, half}, {100, 100}}, 2)}, true,
            {1, -0.1245}},
        // It touches the edge in one point and is an island all the same: else it would flood the bin.
        {"an island that touches", {chain(0, 0, {{half, 0}, {kEnd, half}, {half, half}, {half, 0}})}, false, {0.125}},
    };
    for (const Case& one : cases) {
        const auto rings = closedRings(one.chains, one.background);
        ASSERT_EQ(rings.size(), one.areas.size()) << one.what;
        for (std::size_t i = 0; i < rings.size(); ++i) EXPECT_NEAR(area(rings[i]), one.areas[i], 1e-3) << one.what;
    }
}

TEST(MakingMaps, WhatIsTooSmallLeavesWhatLiesAroundIt) {
    const MapSheet sheet{SheetKind::Land, 1, 4096, 80, 0, 100};
    ShoreBin bin;
    EXPECT_EQ(makeLandBin(bin, sheet, 90, 1).state, BinState::Sea);
    bin.cornerLevel = 1;
    EXPECT_EQ(makeLandBin(bin, sheet, 90, 1).state, BinState::Land);
    // The corner lies in a pond that is left out.
    bin.cornerLevel = 2;
    bin.chains = {chain(0, 3, {{900, 0}, {0, 900}}, 2, 0.5)};
    EXPECT_EQ(makeLandBin(bin, sheet, 90, 1).state, BinState::Land);
    EXPECT_EQ(makeLandBin(bin, sheet, 90, 0.1).state, BinState::Mixed);
    bin.cornerLevel = 1;
    bin.chains = {chain(0, 3, {{900, 0}, {0, 900}}, 1, 0.5)};
    EXPECT_EQ(makeLandBin(bin, sheet, 90, 1).state, BinState::Sea);
    const MapTile kept = makeLandBin(bin, sheet, 90, 0.1).tile;
    ASSERT_EQ(kept.parts(), 1U);
    EXPECT_EQ(kept.points, (std::vector<LatticePoint>{{56, 0}, {0, 56}, {0, 0}}));
}

TEST(MakingMaps, SimplifyingKeepsEndsAndDistance) {
    RawLine wave;
    for (int i = 0; i <= 400; ++i) wave.push_back({i * 100, static_cast<int>(std::lround(3000 * std::sin(i * 0.1)))});
    const Scale scale{.xM = 1, .yM = 0.5};
    for (const double tolerance : {1.0, 50.0, 400.0}) {
        const RawLine result = simplified(wave, scale, tolerance);
        EXPECT_EQ(result.front(), wave.front());
        EXPECT_EQ(result.back(), wave.back());
        EXPECT_LT(result.size(), wave.size());
        std::size_t k = 0;
        for (const RawPoint point : wave) {
            while (result[k + 1].x < point.x) ++k;
            const double along = static_cast<double>(point.x - result[k].x) / (result[k + 1].x - result[k].x);
            const double y = result[k].y + along * (result[k + 1].y - result[k].y);
            EXPECT_LE(std::abs(point.y - y) * scale.yM, tolerance * 2) << "measured upright, a little more";
        }
    }
    const RawLine island{{0, 0}, {1000, 10}, {1000, 900}, {500, 905}, {0, 900}, {0, 0}};
    EXPECT_EQ(simplified(island, {1, 1}, 50), (RawLine{{0, 0}, {1000, 10}, {1000, 900}, {0, 900}, {0, 0}}));
    EXPECT_TRUE(simplified({{0, 0}, {9, 9}, {0, 9}, {0, 0}}, {1, 1}, 50).empty());
}

TEST(MakingMaps, NamesHaveLettersThatTheTypefaceHas) {
    const std::pair<const char*, const char*> cases[] = {
        {"Zürich", "Zürich"},
        {"Łódź", "Lódz"},
        {"Šibenik", "Šibenik"},
        {"Ploieşti", "Ploiesti"},
        {"Nuku‘alofa", "Nuku'alofa"},
        {"Thái Nguyên", "Thái Nguyên"},
        {"Đắk Lắk", "Dak Lak"},
        {"北京", ""},
    };
    for (const auto& [name, shown] : cases) EXPECT_EQ(showableName(name), shown) << name;
    EXPECT_THROW(readCities("\x0A\x05"), std::runtime_error);
}

}}  // namespace korvel::making
