#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "TempFolder.h"
#include "receiver/GpsFixture.h"
#include "tools/ToolRun.h"

namespace korvel { namespace {

using Json = nlohmann::ordered_json;
using Words = std::vector<std::string>;

/// One document a line of what "nmea FILE --json" and the other words print.
std::vector<Json> decoded(const std::string& file, Words words) {
    words.insert(words.begin(), {"nmea", file, "--json"});
    const ToolResult result = runTool(words);
    EXPECT_EQ(result.status, 0) << result.errors;
    std::vector<Json> documents;
    std::istringstream output(result.output);
    for (std::string line; std::getline(output, line);) documents.push_back(Json::parse(line));
    return documents;
}

TEST(NmeaVerb, DecodesAReceiversLog) {
    // Garmin 25LP near L'Aquila, 2005: what gpsd makes of it, its numbers in our units. Variation
    // and satellite words as the log's own last sentences have them.
    const std::string log = KORVEL_TEST_DATA "/nmea/garmin25lp.log";
    const std::vector<Json> last = decoded(log, {"--satellites"});
    ASSERT_EQ(last.size(), 1U);
    const Json& fix = last[0];
    EXPECT_NEAR(fix["position"]["lat"].get<double>(), 42.356496667, 1e-8);
    EXPECT_NEAR(fix["position"]["lon"].get<double>(), 13.367966667, 1e-8);
    EXPECT_NEAR(fix["trackMag"].get<double>(), 358.6, 1e-9);
    const auto word = [](unsigned number, unsigned elevation, unsigned azimuth, unsigned signal) {
        return ((elevation << 9U | azimuth) << 8U | signal) << 8U | number;
    };
    constexpr unsigned kUsed = 0x80;
    const Json expected = {
        {"rmcPositionValid", 1},
        {"magVariation", -1.4},
        {"groundSpeedKt", 0.0},
        {"altitudeFt", 2447},
        {"satsInUse", 3},
        {"fixQuality", 1},
        {"fix3D", 0},
        {"sentenceFlags", 2 | 4 | 8},
        {"satellites", {word(1, 10, 158, 45) | kUsed, word(3, 72, 164, 42) | kUsed, word(11, 24, 279, 0),
                           word(14, 30, 119, 47) | kUsed, word(15, 33, 70, 39), word(16, 5, 184, 0),
                           word(18, 20, 46, 0), word(19, 73, 304, 0), word(22, 50, 54, 0), 0, 0, 0}},
        {"sent", Json::array()},
    };
    for (const auto& [name, value] : expected.items()) EXPECT_EQ(fix[name], value) << name;
    EXPECT_EQ(fix.size(), expected.size() + 2) << "position and track";

    const std::vector<Json> each = decoded(log, {"--each", "--satellites", "--tick-lines", "6"});
    EXPECT_GT(each.size(), 15U);
    EXPECT_EQ(each.back(), fix) << "however often it is decoded";
    EXPECT_EQ(decoded(log, {})[0]["satellites"], (Json(std::vector<int>(12)))) << "not wanted";
}

TEST(NmeaVerb, UnderstandsAllTalkersWhenTold) {
    // Each second positions of GP (5 satellites) and GA (1), what is used in one GSA a system, and
    // lines that end with CR CR LF. The numbers are those of the log's own last sentences.
    const std::string log = KORVEL_TEST_DATA "/nmea/telit-pls83-w.log";
    const std::vector<Json> each = decoded(log, {"--talkers", "all", "--satellites", "--each"});
    for (const Json& fix : each) ASSERT_TRUE(fix["satsInUse"] == 5 || fix["satsInUse"] == 0) << "never Galileo's one";
    const Json& last = each.back();
    EXPECT_NEAR(last["position"]["lat"].get<double>(), 43 + 33.190127 / 60, 1e-8);
    EXPECT_EQ(last["altitudeFt"], 822);
    std::map<std::string, std::pair<int, int>> systems;  // in view, used
    for (const Json& satellite : last["sky"]) {
        auto& [view, used] = systems[satellite["system"]];
        ++view;
        used += satellite["used"].get<bool>() ? 1 : 0;
    }
    const std::map<std::string, std::pair<int, int>> expected = {
        {"GPS", {10, 5}}, {"GLONASS", {10, 5}}, {"Galileo", {13, 1}}, {"BeiDou", {5, 3}}};
    EXPECT_EQ(systems, expected);
    EXPECT_EQ(last["sky"][4], (Json{{"system", "GPS"}, {"id", 14}, {"elevationDeg", nullptr}, {"azimuthDeg", nullptr},
                                  {"snrDb", 29}, {"used", false}}));
    EXPECT_EQ(std::ranges::count_if(last["satellites"], [](const Json& word) { return word != 0; }), 10);

    const std::vector<Json> gp = decoded(log, {"--satellites"});
    EXPECT_EQ(gp, decoded(log, {"--satellites", "--talkers", "gp"}));
    EXPECT_FALSE(gp[0].contains("sky"));
    EXPECT_EQ(runTool({"nmea", log, "--talkers", "gn"}).status, 2);
    const auto lastOfFlight = [&](const char* talkers) {
        const ToolResult flown =
            runTool({"fly", "--json", "--nmea", log, "--talkers", talkers, "--lines-per-tick", "13"});
        const std::size_t end = flown.output.rfind('\n', flown.output.size() - 2);
        return Json::parse(flown.output.substr(end + 1));
    };
    EXPECT_EQ(lastOfFlight("all")["status"], "");
}

TEST(NmeaVerb, OptionsReachTheDecoder) {
    const TempFolder folder;
    const std::string file = (folder / "log").string();
    std::ofstream(file, std::ios::binary) << sentence("GPRMC,1,A,4000.0,N,10000.0,W,9,10,211200,3.0,E") << "\r\n"
                                          << "ASTRAL\r\n# a note\n"
                                          << sentence("GPGLL,1") << "\n"
                                          << sentence("GPGGA,1,4000.0,N,10000.0,W,1,04,1,10,M,,,,");  // no line end
    const auto fix = [&](const Words& words) { return decoded(file, words).at(0); };
    EXPECT_EQ(fix({})["trackMag"], 7.0);
    EXPECT_EQ(fix({"--ignore-magvar"})["trackMag"], 10.0);
    EXPECT_EQ(fix({"--ignore-magvar", "--db-variation", "-5"})["trackMag"], 15.0);
    EXPECT_EQ(fix({"--db-variation", "-5"})["trackMag"], 7.0);
    EXPECT_EQ(fix({})["sent"], Json{"ASTRAL\r\n"});
    EXPECT_EQ(fix({"--port", "COM6:,38400,N,8,1"})["sent"],
        (Json{"ASTRAL\r\n", "$PSRF151,01*0F\r\n", "$PSRF103,05,00,00,01*21\r\n"}));
    const Json trace = fix({"--trace", "--tick-lines", "100"})["trace"];
    ASSERT_EQ(trace.size(), 3U);
    EXPECT_EQ(trace[1], sentence("GPGLL,1") + ": not used");
    EXPECT_EQ(decoded(file, {"--each"}).size(), 2U) << "where something was decoded";

    EXPECT_EQ(runTool({"nmea", file + "x"}).status, 1);
    for (const Words& words : {Words{"--tick-lines", "0"}, Words{"--db-variation", "E"}})
        EXPECT_EQ(runTool({"nmea", file + "x", words[0], words[1]}).status, 2) << words[0];
    EXPECT_EQ(runTool({"nmea", file}).output,
        "40.000000,-100.000000  9.0 kt  track 7.0  32 ft  fix 1  4 satellites in use\n"
        "  sent ASTRAL\n");
}

}}  // namespace korvel
