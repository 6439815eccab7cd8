#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "TempFolder.h"
#include "platform/FileIo.h"
#include "tools/ToolRun.h"

namespace korvel { namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kPlaces =
    "NAVAID_BEGIN\nID=XVR\nNAME=Own\nTYPE=VOR\nPOSN.LAT=47\nPOSN.LON=-122\nFREQ=113.9\nNAVAID_END\n"
    "NAVAID_BEGIN\nID=XFIX\nNAME=Fix\nTYPE=FIX\nPOSN.LAT=48\nPOSN.LON=-122\nNAVAID_END\n";

TEST(PlanVerbs, RoutePlanAndTrack) {
    const TempFolder folder;
    folder.write("own.UDB.TXT", kPlaces);
    const auto run = [&folder](std::vector<std::string> words, int status) {
        words.insert(words.begin(), {"--data", folder.path().string()});
        words.emplace_back("--json");
        const ToolResult result = runTool(words);
        EXPECT_EQ(result.status, status) << result.errors;
        return Json::parse(result.output);
    };
    const Json route = run({"route", "XVR@4.5 XFIX"}, 0);
    EXPECT_EQ(route["error"], "");
    EXPECT_EQ(route["entries"][0]["text"], "XVR@4.5");
    EXPECT_EQ(route["entries"][0]["key"], "XVR");
    EXPECT_EQ(route["entries"][0]["altitudeFt"], 450);
    EXPECT_EQ(route["entries"][1]["altitudeFt"], nullptr);
    EXPECT_NEAR(route["entries"][1]["lat"].get<double>(), 48, 1e-6);
    const Json refused = run({"route", "XVR V99", "--no-airways"}, 1);
    EXPECT_EQ(refused["error"], "V99 navaid/airway not found or data expired!");
    EXPECT_EQ(refused["entries"], Json::parse(R"([{"text":"V99"}])"));

    const std::string saved = (folder.path() / "out.fp").string();
    const std::string file = folder.write("in.fp", "; remark\nv.XVR@45.5\r\nXFIX\r\nf.MINE 47.5 -122.5\n").string();
    const Json plan = run({"plan", file, "--save", saved}, 0);
    EXPECT_EQ(plan["entries"][0], Json::parse(R"({"key":"v.XVR","altitudeFt":4550,"lat":47.0,
                                                  "lon":-122.0})"));
    EXPECT_NEAR(plan["totalNm"].get<double>(), 96.1, 0.1);
    // A key with its kind, a bare identifier, and a place of its own: with its position.
    EXPECT_EQ(readWholeFile(saved), "v.XVR@45.5\r\nXFIX\r\nf.MINE 47.500000 -122.500000\r\n");
    EXPECT_EQ(run({"plan", folder.write("bad.fp", "NONE\n").string()}, 1)["error"], "NONE navaid not found!");
    run({"plan", (folder.path() / "gone.fp").string()}, 1);

    const std::string lines =
        "20260228,235959,47.500000,-122.250000,101,359,4500\r\n"
        "00000000,000000,0.0,0.0,0,0,0\r\n"
        "20260301,000004,47.600000,-122.250000,0,0,-12\r\n";
    const std::string copy = (folder.path() / "copy.trk").string();
    const Json track = run({"track", folder.write("a.trk", lines).string(), "--save", copy}, 0);
    EXPECT_EQ(track["base"], "2026-02-28T23:59:59");
    EXPECT_EQ(track["points"].size(), 3U);
    EXPECT_EQ(track["points"][1], nullptr);
    EXPECT_EQ(track["points"][2]["time"], "2026-03-01T00:00:04");
    EXPECT_EQ(track["points"][2]["altitudeFt"], -12);
    EXPECT_EQ(readWholeFile(copy), lines);
    EXPECT_EQ(run({"track", folder.write("b.trk", "2026\r\n").string()}, 1)["error"], "Invalid format!");
}

TEST(ExchangeVerbs, ImportAndExport) {
    const TempFolder folder;
    folder.write("own.UDB.TXT", kPlaces);
    const auto run = [&folder](std::vector<std::string> words, int status) {
        words.insert(words.begin(), {"--data", folder.path().string()});
        words.emplace_back("--json");
        const ToolResult result = runTool(words);
        EXPECT_EQ(result.status, status) << result.errors;
        return status == 2 ? Json() : Json::parse(result.output);
    };
    const auto out = [&folder](const char* name) { return (folder.path() / name).string(); };
    const std::string gpx =
        folder
            .write("a",
                R"(<gpx><wpt lat="1" lon="2"><name>Barn</name></wpt><rte><name>One</name>)"
                R"(<rtept lat="47" lon="-122"><name>XVR</name></rtept><rtept lat="48" lon="-121"><name>XFIX</name></rtept></rte>)"
                R"(<rte><name>Two</name><rtept lat="48" lon="-122"><name>XFIX</name></rtept></rte><trk><trkseg>)"
                R"(<trkpt lat="1" lon="2"><time>2026-08-22T10:11:12Z</time></trkpt></trkseg></trk></gpx>)")
            .string();
    const Json one = run({"plan", "import", gpx, "--save", out("one.fp")}, 0);
    EXPECT_EQ(one["format"], "gpx");
    EXPECT_EQ(one["routes"], Json::parse(R"([{"name":"One","points":2},{"name":"Two","points":1}])"));
    EXPECT_EQ(one["entries"][0]["key"], "v.XVR");
    EXPECT_EQ(one["notes"].size(), 1U) << "XFIX lies elsewhere";
    EXPECT_EQ(run({"plan", "import", gpx, "--route", "2"}, 0)["entries"].size(), 1U);
    EXPECT_EQ(run({"plan", "import", gpx, "--route", "3"}, 1)["error"], "The file has no route with this number.");
    for (const char* format : {"gpx", "fpl", "fms"}) {
        run({"plan", "export", out("one.fp"), "--format", format, "-o", out(format), "--now", "2026-03-04T12:00:00"},
            0);
        EXPECT_EQ(run({"plan", "import", out(format)}, 0)["entries"][0]["key"], "v.XVR") << format;
    }
    EXPECT_NE(folder.read("fpl").find("<created>2026-03-04T"), std::string::npos);
    run({"plan", "export", gpx, "--format", "doc", "-o", out("x")}, 2);
    EXPECT_EQ(run({"track", "import", gpx}, 0)["points"].size(), 1U);
    const std::string track = folder.write("a.trk", "20260228,235959,47.500000,-122.250000,101,359,4500\r\n").string();
    run({"track", "export", track, "--format", "igc", "-o", out("t.igc")}, 0);
    EXPECT_EQ(run({"track", "import", out("t.igc")}, 0)["points"][0]["altitudeFt"], 4501) << "in whole metres";
    const Json kept = run({"waypoints", gpx, "-o", out("kept.UDB.TXT")}, 0);
    EXPECT_EQ(kept["waypoints"][0]["ident"], "BARN");
    EXPECT_EQ(kept["waypoints"][0]["elevationFt"], nullptr);
    EXPECT_TRUE(readWholeFile(out("kept.UDB.TXT")));
    run({"waypoints", track}, 1);
}

/// The first line of a flight from 47.2 N 122.3 W with these commands.
Json firstTick(const std::vector<std::string>& commands) {
    const TempFolder folder;
    folder.write(
        "own.UDB.TXT", std::string(kPlaces) +
                           "ARPT_BEGIN\nID=XAP\nNAME=Field\nPOSN.LAT=47.4\nPOSN.LON=-122.3\nMAG_VAR=15.5\nARPT_END\n");
    std::vector<std::string> words{"--data", folder.path().string(), "fly", "--json", "--ticks", "1"};
    words.insert(words.end(), commands.begin(), commands.end());
    const ToolResult result = runTool(words);
    EXPECT_EQ(result.status, 0) << result.errors;
    return Json::parse(result.output);
}

TEST(FlyVerb, CommandsOfTheFirstTickKnowTheVariation) {
    const std::string sim = "47.2,-122.3,340,120";
    for (const std::vector<std::string>& command : {std::vector<std::string>{"--direct-to", "a.XAP", "--obs", "340"},
             std::vector<std::string>{"--go-to", "47.4,-122.3,340,HERE"}}) {
        std::vector<std::string> words{"--sim", sim};
        words.insert(words.end(), command.begin(), command.end());
        const Json tick = firstTick(words);
        // The place lies due north: the bearing tells the variation.
        const double variation = 360 - tick["bearingMag"].get<double>();
        EXPECT_NEAR(variation, 15.5, 1) << tick;
        EXPECT_NEAR(tick["desiredTrack"].get<double>(), std::fmod(340 + variation, 360), 0.01) << tick;
    }
}

TEST(FlyVerb, CommandsWaitForAPosition) {
    const TempFolder folder;
    const std::string log = folder.write("log.nmea", "nothing\n").string();
    EXPECT_EQ(firstTick({"--nmea", log, "--go-to", "47.4,-122.3,340,HERE"})["activeName"], "");
}

}}  // namespace korvel
