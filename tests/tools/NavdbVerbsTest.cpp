#include <cstdlib>
#include <sstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "TempFolder.h"
#include "navdb/TestDatabase.h"
#include "system/Environment.h"
#include "tools/ToolRun.h"

namespace korvel { namespace {

using Json = nlohmann::ordered_json;

/// A data folder with one database and one user file.
class NavdbVerbs : public testing::Test {
 protected:
    NavdbVerbs() {
        TestDatabase content;
        content.addAirport("SEA", 47.5, -122.25, "Seattle");
        content.addNavaid("SEA", 47.5, -122.5, 0x61, 116.8);
        content.addFix("FOO", 48.5, -122.5, 0x85);
        content.addAirway("V2", "FOO SEA");
        content.addRunwayEnd("SEA", 1, "16L", 11901);
        content.addComm("SEA", "TWR", 119.9);
        content.write(folder_.path(), "k.ng2");
        folder_.write("my.UDB.TXT",
            "ARPT_BEGIN\nID=KSEA\nNAME=Mine\nPOSN.LAT=47:30\nPOSN.LON=-122:15\nARPT_END\n"
            "NAVAID_BEGIN\nID=FOO\nNAME=x\nTYPE=FIX\nPOSN.LAT=1\nPOSN.LON=1\nNAVAID_END\n");
    }
    /// Runs with the data folder and "--json"; returns the lines.
    std::vector<Json> run(std::vector<std::string> words, int status = 0) {
        words.insert(words.begin(), {"--data", folder_.path().string()});
        words.emplace_back("--json");
        const ToolResult result = runTool(words);
        EXPECT_EQ(result.status, status) << result.output << result.errors;
        std::vector<Json> documents;
        std::istringstream lines(result.output);
        for (std::string line; std::getline(lines, line);) documents.push_back(Json::parse(line));
        return documents;
    }
    std::string file() const { return (folder_.path() / "k.ng2").string(); }

    TempFolder folder_;
};

TEST_F(NavdbVerbs, TellWhatAFileHolds) {
    const Json info = run({"navdb", "info", file(), "--now", "2100-01-01T00:00:00"}).at(0);
    const Json expected{
        {"error", ""}, {"version", "NavDb4.7"}, {"region", "K"}, {"expiry", 20991231}, {"expired", true}};
    for (const auto& [name, value] : expected.items()) EXPECT_EQ(info[name], value) << name;
    EXPECT_EQ(info["tables"][4], Json::parse(R"({"name":"_AWY","rowSize":8,"fields":[{"name":"ID","type":3,"length":4},
                              {"name":"ROUTE","type":3,"length":4}]})"));
    EXPECT_EQ(info["indexes"][2], Json::parse(R"({"name":"NavKey","table":"_NAV","rows":1})"));
    EXPECT_EQ(run({"navdb", "verify", file()}).at(0), Json::parse(R"({"error":""})"));
    EXPECT_EQ(run({"navdb", "verify", file() + "x"}, 1).at(0)["error"], "File Open Error");
    EXPECT_EQ(run({"navdb", "rows", file(), "WptKey", "--key", "FOO"}).at(0),
        Json::parse(R"({"ID":"FOO","LAT":48.5,"LON":-122.5,"TYPE":133})"));
    EXPECT_EQ(run({"navdb", "rows", file(), "WptKey", "--key", "FO"}, 1).size(), 1U);
    EXPECT_EQ(run({"navdb", "rows", file(), "NoKey"}, 1).size(), 1U);
}

TEST_F(NavdbVerbs, SearchTheDataFolder) {
    const Json vor = run({"navdb", "find", "v.SEA"}).at(0);
    const Json expected{{"kind", 1}, {"frequency", 116.8}, {"usage", 0x60}, {"infoText", "116.8"}, {"source", "k.ng2"}};
    for (const auto& [name, value] : expected.items()) EXPECT_EQ(vor[name], value) << name;
    EXPECT_FALSE(vor.contains("runways"));
    const Json airport = run({"navdb", "find", "a.KSEA"}).at(0);
    EXPECT_EQ(airport["name"], "Mine");
    EXPECT_EQ(airport["source"], "my.UDB.TXT");
    EXPECT_TRUE(airport["elevationFt"].is_null());
    EXPECT_EQ(run({"navdb", "find", "a.SEA"}, 1).at(0)["error"], "a.SEA navaid not found!");
    const auto near = run({"navdb", "nearest", "47.5,-122.5", "--within", "61"});
    ASSERT_EQ(near.size(), 3U);
    EXPECT_EQ(near[0]["key"], "v.SEA");
    EXPECT_EQ(near[1]["key"], "a.KSEA");
    EXPECT_NEAR(near[2]["distanceNm"].get<double>(), 60.0, 1e-6);
    EXPECT_NEAR(near[2]["bearingTrue"].get<double>(), 0.0, 1e-6);
    EXPECT_EQ(run({"navdb", "nearest", "-47,1", "--kind", "f", "--within", "1"}, 1).size(), 1U);
    EXPECT_EQ(run({"navdb", "airway", "V2"}).at(0), Json::parse(R"({"routes":["FOO SEA"]})"));
    EXPECT_EQ(run({"navdb", "airway", "V3"}, 1).size(), 1U);
    const Json loaded = run({"load"}).at(0);
    EXPECT_EQ(loaded["databases"], Json::parse(R"([{"file":"k.ng2","error":""}])"));
    EXPECT_EQ(loaded["user"], Json::parse(R"(["a.KSEA"])"));
    EXPECT_EQ(loaded["excluded"].size(), 1U);
    EXPECT_TRUE(loaded["report"].get<std::string>().ends_with(
        "Airport KSEA in .NG2 file replaced w/ entry in .UDB.TXT file.\r\n"
        "Nav f.FOO not used. Already exists in a .NG2 file.\r\n"));
}

/// What is built without a name goes where it replaces the bundled database.
TEST_F(NavdbVerbs, BuildsIntoTheDocumentsFolder) {
    if (!homeIsAVariable()) GTEST_SKIP() << "the documents folder is the user's own";
    const char* const home = std::getenv("HOME");  // NOLINT(concurrency-mt-unsafe)
    const std::string before = home != nullptr ? home : "";
    const std::string fix = folder_.write("fix.dat", "I\n600 Version\n 47.7 8.2 06TRA\n99\n").string();
    const std::vector<std::string> build{"navdb", "build", "--from", "xplane", "--fix", fix, "--json"};
    for (const char* name : {"HOME", "XDG_CONFIG_HOME"}) setVariable(name, folder_.path().string().c_str());
    EXPECT_EQ(runTool(build).status, 2) << "no documents folder";
    std::filesystem::create_directory(folder_ / "Documents");
    const ToolResult built = runTool(build);
    setVariable("HOME", before.c_str());
    setVariable("XDG_CONFIG_HOME", nullptr);
    EXPECT_EQ(built.status, 0) << built.errors;
    const std::filesystem::path output = folder_ / "Documents/world.ng2";
    EXPECT_EQ(Json::parse(built.output)["output"], output.string());
    EXPECT_EQ(runTool({"navdb", "verify", output.string()}).status, 0);
}

}}  // namespace korvel
