#include <cstdlib>
#include <sstream>

#include <gtest/gtest.h>

#include "compiler/AirwayChains.h"

namespace korvel { namespace {

/// Segments written "A-B" between points named by a letter; the letter sets the position: column
/// and row on a grid of ten, one degree apart, "A" at the south-west corner.
std::vector<std::string> chainsOf(const std::string& text) {
    AirwayNetwork network;
    const auto point = [&](char name) {
        const auto [row, column] = std::div(name - 'A', 10);
        return network.pointAt(std::string(1, name), {static_cast<double>(row), static_cast<double>(column)});
    };
    std::istringstream words(text);
    for (std::string word; words >> word;) network.addSegment("V1", point(word.front()), point(word.back()));
    std::vector<std::string> chains;
    for (const auto& chain : chainSegments(network.airways().find("V1")->second, network.points())) {
        chains.emplace_back();
        for (const auto index : chain) chains.back() += network.points()[index].ident;
    }
    return chains;
}

TEST(AirwayChains, JoinsSegmentsInAnyOrderAndDirection) {
    using Chains = std::vector<std::string>;
    const std::tuple<const char*, Chains> cases[] = {
        {"A-B", {"AB"}},
        {"A-B B-C C-D", {"ABCD"}},
        {"C-B D-C A-B", {"DCBA"}},
        {"A-B B-A A-B B-C", {"ABC"}},  // both directions and both levels
        {"A-A A-B", {"AB"}},
        {"A-B X-Y B-C Y-Z", {"ABC", "XYZ"}},  // the name used again elsewhere
        {"A-B B-L L-K K-A", {"ABLKA"}},       // a ring
        {"A-B B-C C-M M-L L-B", {"ABCMLB"}},  // a ring at the end of a line
        // M is north of C: the airway runs straight on to E, the branch begins at C.
        {"A-B B-C C-M C-D D-E", {"ABCDE", "CM"}},
        // Two parallel ways from B to E.
        {"A-B B-C C-D D-E E-F B-M M-N N-E", {"ABCDEF", "BMNE"}},
    };
    for (const auto& [segments, chains] : cases) EXPECT_EQ(chainsOf(segments), chains) << segments;
}

TEST(AirwayChains, GoesStraightOnAcrossTheDateLine) {
    AirwayNetwork network;
    const auto west = network.pointAt("WEST", {10.0, 178.0});
    const auto middle = network.pointAt("MID", {10.0, 179.5});
    const auto north = network.pointAt("NORTH", {12.0, 179.5});
    const auto east = network.pointAt("EAST", {10.0, -179.0});
    EXPECT_EQ(network.pointAt("EAST", {10.001, -178.999}), east) << "the same point, less exact";
    EXPECT_NE(network.pointAt("EAST", {20.0, -179.0}), east) << "a namesake";
    const AirwayNetwork::Segment segments[] = {{west, middle}, {middle, north}, {middle, east}};
    const auto chains = chainSegments(segments, network.points());
    ASSERT_EQ(chains.size(), 2U);
    EXPECT_EQ(chains[0], (AirwayChain{west, middle, east}));
    EXPECT_EQ(chains[1], (AirwayChain{middle, north}));
}

TEST(AirwayChains, CutsLongRoutesIntoPiecesThatShareAFix) {
    constexpr std::size_t kLongest = 1023;
    std::vector<std::string> names;
    for (int i = 0; i < 500; ++i) names.push_back("FX" + std::to_string(100 + i));
    const std::vector<std::string_view> idents(names.begin(), names.end());
    const auto texts = routeTexts(idents, kLongest);
    ASSERT_EQ(texts.size(), 3U);
    std::vector<std::string> joined;
    for (const auto& text : texts) {
        EXPECT_LE(text.size(), kLongest);
        std::istringstream words(text);
        std::string word;
        words >> word;
        if (!joined.empty()) {
            EXPECT_EQ(word, joined.back());
            joined.pop_back();
        }
        do joined.push_back(word);
        while (words >> word);
    }
    EXPECT_EQ(joined, names);
    // 6 bytes a fix: 170 fill 1019 bytes, and the piece is as full as it can be.
    EXPECT_GT(texts[0].size() + 6, kLongest);
    EXPECT_EQ(routeTexts(std::vector<std::string_view>{"A", "B"}, 3), std::vector<std::string>{"A B"});
}

}}  // namespace korvel
