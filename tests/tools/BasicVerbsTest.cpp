#include <filesystem>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "TempFolder.h"
#include "tools/ToolRun.h"

namespace korvel { namespace {

using Json = nlohmann::ordered_json;
using Words = std::vector<std::string>;

TEST(Tool, StatusAndMessages) {
    const TempFolder folder;
    const std::string data = folder.path().string();
    const struct {
        Words words;
        int status;
        std::string output;  ///< all of it, when not empty
        std::string error;   ///< how standard error begins
    } cases[] = {
        {{}, 2, "", "A verb"},
        {{"frob"}, 2, "", "The following argument was not expected: frob"},
        {{"--json", "geo", "turn", "1", "2"}, 2, "", "The following"},
        {{"--data", data + "/missing", "scheme", "x"}, 2, "", "--data"},
        {{"--help"}, 0, "", ""},
        {{"geo", "--help"}, 0, "", ""},
        {{"geo", "turn", "350", "10"}, 0, "deg 20\n", ""},
        {{"geo", "--json", "turn", "10", "350"}, 0, "{\"deg\":-20}\n", ""},
        {{"geo", "turn", "0", "180", "--json"}, 0, "{\"deg\":180}\n", ""},
        {{"geo", "turn", "180", "-0", "--json"}, 0, "{\"deg\":-180}\n", ""},
        {{"geo", "variation", "80", "-96", "--date", "2025-01-01", "--altitude", "157480"}, 0, "", ""},
        {{"geo", "variation", "47", "8", "--date", "2024-12-31"}, 1, "", "The magnetic model holds"},
        {{"geo", "variation", "47", "8", "--date", "2026-02-29"}, 2, "", ""},
        {{"geo", "variation", "47", "8", "--altitude", "3e6"}, 2, "", "The altitude"},
        {{"geo", "turn", "10"}, 2, "", "turn takes 2 numbers"},
        {{"geo", "turn", "10", "1e300"}, 2, "", "A heading"},
        {{"geo", "turn", "10", "nan"}, 2, "", "Not a number: nan"},
        {{"geo", "bend", "10", "20"}, 2, "", "Unknown operation"},
        {{"geo", "distance", "1", "2", "3", "4,5"}, 2, "", "Not a number: 4,5"},
        {{"geo", "course", "-90.1", "2", "3", "4"}, 2, "", "Latitude"},
        {{"geo", "course", "1", "2", "3", "-181"}, 2, "", "Longitude"},
        {{"geo", "turn", "1", "2", "--frob"}, 2, "", "The following"},
        {{"profile", data + "/none.ini"}, 1, "", "File Open Error: "},
        {{"profile", data}, 1, "", "File Open Error: "},
        {{"profile", data + "/none/x.ini", "settings"}, 1, "", "File Open Error: "},
        {{"profile", data + "/x.ini", "get-int", "S", "N"}, 2, "", "get-int takes 3 words"},
        {{"profile", data + "/x.ini", "get-int", "S", "N", "1x"}, 2, "", "Not a whole number"},
        {{"profile", data + "/x.ini", "frob"}, 2, "", "Unknown action"},
        {{"scheme"}, 2, "", "name is required"},
    };
    for (const auto& one : cases) {
        const ToolResult result = runTool(one.words);
        const std::string call = testing::PrintToString(one.words);
        EXPECT_EQ(result.status, one.status) << call;
        EXPECT_EQ(result.errors.substr(0, one.error.size()), one.error) << call;
        EXPECT_EQ(result.errors.empty(), one.status == 0) << call << result.errors;
        if (!one.output.empty()) { EXPECT_EQ(result.output, one.output) << call; }
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path())) << "refusals leave no files behind";
    const std::string north =
        runTool({"geo", "variation", "80", "-96", "--date", "2025-01-01", "--altitude", "157480", "--json"}).output;
    EXPECT_NEAR(Json::parse(north)["deg"].get<double>(), -29.91, 0.006);
    const Json refusal = Json::parse(runTool({"profile", data, "--json"}).output);
    EXPECT_EQ(refusal["error"], "File Open Error: " + data);
}

TEST(Tool, Geodesy) {
    const struct {
        Words words;
        Json fields;
    } cases[] = {
        {{"distance", "33.95", "-118.4", "40.633333", "-73.783333"}, {{"rad", 0.623585}, {"nm", 2143.727}}},
        {{"distance", "-33.95", "118.4", "-40.633333", "73.783333"}, {{"rad", 0.623585}, {"nm", 2143.727}}},
        {{"course", "33.95", "-118.4", "40.633333", "-73.783333"}, {{"deg", 65.892}}},
        {{"point", "33.95", "-118.4", "100", "66"}, {{"lat", 34.614086}, {"lon", -116.549901}}},
        {{"point", "-.5", "179.5", "60", "90"}, {{"lat", -0.499924}, {"lon", -179.499962}}},
        {{"midlat", "0", "-10", "0", "30"}, {{"lat", 0}, {"lon", 10}}},
    };
    for (const auto& one : cases) {
        Words words{"geo"};
        words.insert(words.end(), one.words.begin(), one.words.end());
        words.emplace_back("--json");
        const ToolResult result = runTool(words);
        ASSERT_EQ(result.status, 0) << result.errors;
        const Json document = Json::parse(result.output);
        EXPECT_EQ(document.size(), one.fields.size());
        for (const auto& [name, value] : one.fields.items())
            EXPECT_NEAR(document.at(name).get<double>(), value.get<double>(), 1e-3) << words[1];
    }
}

TEST(Tool, ProfileKeepsWhatItReadsAndSets) {
    const TempFolder folder;
    const std::string file = textOf(folder / "Größe λ \xF0\x9F\x9B\xA9.ini");  // whatever the name
    const auto json = [&file](Words words) {
        words.insert(words.begin(), {"profile", file, "--json"});
        const ToolResult result = runTool(words);
        EXPECT_EQ(result.status, 0) << result.errors;
        return Json::parse(result.output);
    };
    EXPECT_EQ(json({"get-int", "Options", "Port", "-5"})["value"], -5);
    EXPECT_EQ(json({"get-string", "Options", "Port", ""})["value"], "");
    EXPECT_EQ(json({})["entries"], (Json{{"Options.Port", ""}, {"Options:Port", "-5"}}));
    json({"set-int", "Options", "RotateMask", "460551"});
    json({"set-string", "Options", "SimLon", "-118.4"});
    json({"set-int", "Options", "ShowHints2", "5"});
    EXPECT_EQ(json({"get-int", "Options", "ShowHints2", "0"})["value"], 5);

    const Json settings = json({"settings"})["settings"];
    EXPECT_EQ(settings.size(), 37U);
    EXPECT_EQ(settings.begin().key(), "Port");
    const Json expected{{"RotateMask", 0x020202}, {"ShowHints2", 1}, {"SimLon", "-118.4"}, {"LogEndVal", -1}};
    for (const auto& [key, value] : expected.items()) EXPECT_EQ(settings[key], value) << key;
    const Json entries = json({})["entries"];
    EXPECT_EQ(entries.size(), 38U) << "37 settings and the integer \"Port\"";
    EXPECT_EQ(entries["Options:RotateMask"], "460551");
    EXPECT_EQ(runTool({"profile", file, "get-string", "Options", "SimLon", "x"}).output, "-118.4\n");
}

TEST(Tool, SchemesComeFromTheDataFolder) {
    const TempFolder folder;
    folder.write("sea.scm", "geo.water = 300,0,0\n Geo.Water=0,0,255");
    const auto colors = [&folder](const std::string& name) {
        const ToolResult result = runTool({"--data", folder.path().string(), "scheme", "--json", name});
        EXPECT_EQ(result.status, 0) << result.errors;
        return Json::parse(result.output)["colors"];
    };
    EXPECT_EQ(colors("SEA.SCM").size(), 44U);
    EXPECT_EQ(colors("SEA.SCM")["geo.water"], (Json{44, 0, 0}));
    EXPECT_EQ(colors("SEA.SCM")["Geo.Water"], (Json{0, 0, 255}));
    EXPECT_EQ(colors("gone.SCM"), colors("<Default>"));
    EXPECT_EQ(colors("<Night-Flight>")["map.class_c"], (Json{0, 204, 0}));
}

}}  // namespace korvel
