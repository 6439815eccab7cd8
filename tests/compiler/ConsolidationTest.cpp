#include <gtest/gtest.h>

#include "compiler/Consolidation.h"
#include "compiler/sources/VariationField.h"

namespace korvel { namespace {

SourceNavaid navaid(NavaidKind kind, const char* ident, GeoDegrees position, std::optional<double> variation = {}) {
    return {kind, ident, "", "ED", position, 110.0, kUsageLow, variation};
}

SourceFix fix(const char* ident, GeoDegrees position, std::optional<Usage> usage = {}, const char* region = "") {
    return {ident, region, position, usage};
}

const SourceFix* findFix(const AviationData& data, std::string_view ident) {
    for (const auto& each : data.fixes)
        if (each.ident == ident) return &each;
    return nullptr;
}

TEST(Consolidation, ShowsAStationAndItsDmeAsOne) {
    AviationData data;
    data.navaids = {navaid(NavaidKind::DmeOnly, "OSN", {52.2, 8.2}), navaid(NavaidKind::Vor, "OSN", {52.201, 8.201}),
        navaid(NavaidKind::Ndb, "RK", {50.0, 8.0}), navaid(NavaidKind::DmeOnly, "RK", {50.001, 8.0}),
        navaid(NavaidKind::Vortac, "SEA", {47.4, -122.3}), navaid(NavaidKind::DmeOnly, "SEA", {47.4, -122.3}),
        navaid(NavaidKind::Vor, "OSN", {10.0, 8.2}),     // a namesake
        navaid(NavaidKind::Vor, "SEA", {47.4, -122.3}),  // given twice
        navaid(NavaidKind::DmeOnly, "LCH", {48.2, 10.9})};
    ImportLog log;
    consolidate(data, log);
    const std::pair<const char*, NavaidKind> left[] = {
        {"OSN", NavaidKind::VorDme}, {"RK", NavaidKind::NdbDme}, {"SEA", NavaidKind::Vortac}, {"OSN", NavaidKind::Vor}};
    ASSERT_EQ(data.navaids.size(), std::size(left));
    for (std::size_t i = 0; i < std::size(left); ++i) {
        EXPECT_EQ(data.navaids[i].ident, left[i].first);
        EXPECT_EQ(data.navaids[i].kind, left[i].second) << left[i].first;
    }
    EXPECT_EQ(log.omitted("DME and TACAN stations without a VOR or NDB"), 1U);
    EXPECT_EQ(log.omitted("navaids given twice"), 1U);
}

TEST(Consolidation, GivesFixesTheUsageOfTheirAirwaysAndAirwaysTheirFixes) {
    AviationData data;
    data.navaids = {navaid(NavaidKind::Vor, "VOR", {50.0, 8.0}), navaid(NavaidKind::DmeOnly, "TAC", {50.0, 9.0})};
    data.fixes = {fix("LOW", {50.0, 8.5}), fix("BOTH", {50.0, 8.6}), fix("OFF", {51.0, 8.0}),
        fix("LOW", {10.0, 8.5}),  // a namesake far away
        fix("VRP", {50.0, 8.8}, kUsageVisual)};
    auto& airways = data.airways;
    const auto chain = {airways.pointAt("VOR", {50.0, 8.0}), airways.pointAt("LOW", {50.0, 8.5}),
        airways.pointAt("BOTH", {50.0, 8.6}), airways.pointAt("VRP", {50.0, 8.8}), airways.pointAt("TAC", {50.0, 9.0}),
        airways.pointAt("ONLY", {50.0, 9.5})};
    for (const auto point : chain) airways.markUse(point, false);
    airways.markUse(*(chain.begin() + 2), true);
    airways.addSegment("V1", *chain.begin(), *(chain.begin() + 1));
    ImportLog log;
    consolidate(data, log);
    ASSERT_EQ(data.fixes.size(), 7U);
    const Usage usages[] = {kUsageLow, kUsageBoth, kUsageTerminal, kUsageTerminal, kUsageVisual};
    for (std::size_t i = 0; i < std::size(usages); ++i) EXPECT_EQ(data.fixes[i].usage, usages[i]) << i;
    EXPECT_EQ(findFix(data, "VOR"), nullptr);
    EXPECT_NE(findFix(data, "TAC"), nullptr) << "the station is left out, its airway needs it";
    EXPECT_EQ(log.taken("fixes that only the airways know"), 1U);
}

TEST(Consolidation, FindsAirwayPointsByRegionWhereNoPositionIsGiven) {
    AviationData data;
    data.fixes = {fix("ABBEY", {40.0, 8.0}, kUsageTerminal, "LI"), fix("ABBEY", {52.0, 8.0}, kUsageTerminal, "ED"),
        fix("ABBEY", {52.0, 8.0}, std::nullopt, "ED"),  // used en route as well
        fix("ENRTE", {53.0, 8.0}, std::nullopt, "ED")};
    const auto abbey = data.airways.pointIn("ABBEY", "ED", AirwayPointType::Fix);
    const auto gone = data.airways.pointIn("GONE", "ED", AirwayPointType::Fix);
    data.airways.markUse(abbey, true);
    data.airways.addSegment("L1", abbey, gone);
    ImportLog log;
    consolidate(data, log);
    ASSERT_EQ(data.fixes.size(), 3U);
    EXPECT_EQ(std::tuple(data.fixes[0].usage, data.fixes[1].usage, data.fixes[2].usage),
        std::tuple(kUsageTerminal, kUsageHigh, kUsageLow));
    EXPECT_EQ(data.airways.points()[abbey].position->lat, 52.0);
    EXPECT_EQ(log.omitted("positions of airway points that no file gives"), 1U);
}

TEST(Consolidation, KeepsTheFirstOfAirportsOfOneIdentifier) {
    AviationData data;
    data.airports.resize(2);
    data.airports[0].ident = data.airports[1].ident = "EDXX";
    data.airports[0].name = "First";
    ImportLog log;
    consolidate(data, log);
    ASSERT_EQ(data.airports.size(), 1U);
    EXPECT_EQ(data.airports[0].name, "First");
}

TEST(VariationField, TakesTheNearestStationThatKnowsIt) {
    const std::vector<SourceNavaid> stations{navaid(NavaidKind::Vor, "SEA", {47.4, -122.3}, 19.0),
        navaid(NavaidKind::Vor, "BOS", {42.3, -71.0}, -16.0), navaid(NavaidKind::Vor, "ZERO", {42.4, -71.1}, 0.0),
        navaid(NavaidKind::Vor, "NONE", {47.5, -122.3}), navaid(NavaidKind::Vor, "FIJI", {-17.0, 179.8}, 12.5)};
    const VariationField field(stations);
    EXPECT_EQ(field.at({47.5, -122.3}), 19.0);
    EXPECT_EQ(field.at({42.4, -71.1}), -16.0);
    EXPECT_EQ(field.at({-17.0, -179.5}), 12.5);
    EXPECT_EQ(field.at({47.4 + 4.1, -122.3}), 19.0);          // 246 NM
    EXPECT_EQ(field.at({47.4 + 4.2, -122.3}), std::nullopt);  // 252 NM
}

}}  // namespace korvel
