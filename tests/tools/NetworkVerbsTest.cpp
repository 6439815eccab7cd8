#include <map>
#include <sstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tools/ToolRun.h"

namespace korvel { namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kCapture = KORVEL_TEST_DATA "/gdl90/stratux.bin";

TEST(Gdl90Verb, PrintsEachMessage) {
    const ToolResult result = runTool({"gdl90", kCapture, "--json"});
    ASSERT_EQ(result.status, 0) << result.errors;
    std::map<std::string, int> counts;
    Json own;
    Json last;
    std::istringstream output(result.output);
    for (std::string line; std::getline(output, line);) {
        last = Json::parse(line);
        ++counts[last["type"]];
        if (last["type"] == "ownship") own = last;
    }
    const std::map<std::string, int> expected = {
        {"heartbeat", 6}, {"ownship", 10}, {"geometricAltitude", 10}, {"traffic", 4}, {"other", 132}, {"summary", 1}};
    EXPECT_EQ(counts, expected);
    EXPECT_EQ(last, (Json{{"type", "summary"}, {"messages", 162}, {"badFrames", 0}}));
    EXPECT_NEAR(own["lat"].get<double>(), 39.5831823, 1e-7);
    EXPECT_NEAR(own["lon"].get<double>(), -105.3811812, 1e-7);
    EXPECT_EQ(own["address"], "F00000");
    EXPECT_EQ(own["callSign"], "Stratux");
    EXPECT_EQ(own["groundSpeedKt"], 0);
    EXPECT_EQ(runTool({"gdl90", std::string(kCapture) + "x"}).status, 1);
}

TEST(Gdl90Verb, MakesAFix) {
    const ToolResult result = runTool({"gdl90", kCapture, "--fix", "--json"});
    const Json fix = Json::parse(result.output);
    EXPECT_EQ(fix["fixQuality"], 1);
    EXPECT_EQ(fix["fix3D"], 1);
    EXPECT_EQ(fix["satsInUse"], 0);
    EXPECT_NEAR(fix["position"]["lat"].get<double>(), 39.5831823, 1e-7);
    // 8130 ft above the ellipsoid, which is 15 to 18 m above the sea there.
    EXPECT_NEAR(fix["altitudeFt"].get<int>(), 8130 + 54, 6);
}

TEST(Gdl90Verb, SendsAFlightAmongOthers) {
    for (const char* place : {"tcp://127.0.0.1:4000", "udp://:4000", "x"})
        EXPECT_EQ(runTool({"gdl90", "--simulate", "47,8", place}).status, 2) << place;
    // Nobody has to listen; what is sent is read in a room's own test.
    const ToolResult result =
        runTool({"gdl90", "--simulate", "47,8", "udp://127.0.0.1:40124", "--seconds", "1", "--json"});
    EXPECT_EQ(result.status, 0);
    EXPECT_GE(Json::parse(result.output)["sent"].get<int>(), 1);
    EXPECT_EQ(runTool({"gdl90", "--play", std::string(kCapture) + "x", "udp://127.0.0.1:40124"}).status, 1);
}

TEST(ReceiveVerb, KnowsASourceFromOtherTexts) {
    for (const char* text : {"COM1:,9600,N,8,1", "tcp://host", "http://host:80", ""})
        EXPECT_EQ(runTool({"receive", text}).status, 2) << text;
    EXPECT_EQ(runTool({"receive", "udp://127.0.0.1:40123", "--seconds", "0"}).status, 2);
    const ToolResult result = runTool({"receive", "udp://127.0.0.1:40123", "--seconds", "0.1", "--json"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Json::parse(result.output)["fixQuality"], 0);
}

}}  // namespace korvel
