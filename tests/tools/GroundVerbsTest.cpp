#include <cstdint>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "TempFolder.h"
#include "ground/SmallMap.h"
#include "tools/ToolRun.h"

namespace korvel { namespace {

using Json = nlohmann::ordered_json;

TEST(Tool, TheGround) {
    const TempFolder folder;
    const std::string map = folder.write("small.map", smallMap()).string();
    const std::string air = folder
                                .write("air.txt",
                                    "AC D\nAN LOW\nAL GND\nAH 2000 MSL\nAF 118.1\nV X=45:00N 045:00E\nDC 10\nAC R\nAN "
                                    "HIGH\nAL FL 95\nAH UNL\nDC "
                                    "5\nAC C\nAN BAD\nDC x\n")
                                .string();
    folder.write("plan.txt", "FPL 0\n");
    const auto json = [&](std::vector<std::string> words) {
        words.insert(words.begin(), {"--data", folder.path().string()});
        words.emplace_back("--json");
        const ToolResult result = runTool(words);
        EXPECT_EQ(result.status, 0) << result.errors;
        return Json::parse(result.output);
    };
    const Json info = json({"basemap", "info", map});
    EXPECT_EQ(info["made"], "2026-01-02");
    EXPECT_EQ(info["levels"].size(), 2U);
    EXPECT_EQ(info["levels"][1]["tiles"], 1);
    EXPECT_TRUE(info["levels"][1]["metresPerPixelTo"].is_null());
    EXPECT_EQ(json({"basemap", "at", "45", "45", "--level", "1"})["land"], true) << "the finest is the first";
    EXPECT_EQ(json({"basemap", "at", "45", "45"})["land"], false);
    const Json list = json({"airspace", "list", air});
    ASSERT_EQ(list["airspaces"].size(), 2U);
    EXPECT_EQ(list["airspaces"][0]["floor"], (Json{{"text", "GND"}, {"ft", 0}, {"reference", "AGL"}}));
    EXPECT_EQ(list["airspaces"][1]["ceiling"], (Json{{"text", "UNL"}, {"ft", nullptr}, {"reference", "UNL"}}));
    EXPECT_EQ(list["airspaces"][0]["frequency"], "118.1");
    EXPECT_EQ(list["problems"][0]["line"], 15);
    EXPECT_EQ(json({"airspace", "45", "45.05"})["inside"].size(), 2U);
    EXPECT_EQ(json({"airspace", "45", "45.05", "5000"})["inside"].size(), 0U);
    EXPECT_EQ(json({"airspace", "45", "45.05", "9500"})["inside"][0]["name"], "HIGH");
    EXPECT_EQ(json({"terrain", "45", "45"}), (Json{{"heightFt", 0}, {"source", "sea"}}));
    EXPECT_EQ(json({"terrain", "-75", "15"})["heightFt"], nullptr) << "land without a tile";
    EXPECT_EQ(json({"terrain", "along", "45,45", "46,45", "--points", "3"})["points"].size(), 3U);
    folder.write("masts.csv", "name,lat,lon,agl,amsl\nMast,45,45.1,120,1500\nPole,45,45.01,40,\n");
    const Json near = json({"obstacles", "near", "45", "45"})["obstacles"];
    ASSERT_EQ(near.size(), 2U);
    EXPECT_EQ(near[0]["elevationFt"], Json());
    EXPECT_EQ(near[1], (Json{{"lat", near[1]["lat"]}, {"lon", near[1]["lon"]}, {"heightAglFt", 120},
                           {"elevationFt", 1380}, {"topFt", 1500}, {"name", "Mast"}, {"source", "masts.csv"}}));
    EXPECT_EQ(json({"obstacles", "near", "45", "45", "--within", "2"})["obstacles"].size(), 1U);
    EXPECT_EQ(runTool({"basemap", "info", air}).errors, "air.txt is not a base map\n");
    EXPECT_EQ(runTool({"basemap", "frob", "x"}).status, 2);
    EXPECT_EQ(runTool({"airspace", "list", "none"}).status, 1);
}

TEST(Tool, DrawsTheProfileOfAPlan) {
    const TempFolder folder;
    std::string bytes;
    for (int i = 0; i < 1201 * 1201; ++i) bytes += "\x03\xE8";  // 1000 m
    folder.write("N47E008.hgt", bytes);
    folder.write("air.txt", "AC R\nAN FIELD\nAL 5000 MSL\nAH 6000 MSL\nV X=47:30:00N 008:30:00E\nDC 10\n");
    const std::string plan = folder.write("in.fp", "f.ONE 47.5 8.1\nf.TWO 47.5 8.9@40\n").string();
    const auto draw = [&](const std::string& file, std::vector<std::string> more) {
        std::vector<std::string> words{"--data", folder.path().string(), "draw", "profile", "--size", "600x200", "-o",
            (folder / "out.svg").string(), "--plan", file};
        words.insert(words.end(), more.begin(), more.end());
        const ToolResult result = runTool(words);
        return result.status == 0 ? folder.read("out.svg") : result.errors;
    };
    const auto has = [](const std::string& svg, const std::string& what) {
        return svg.find(what) != std::string::npos;
    };
    const std::string plain = draw(plan, {});
    for (const char* word : {">ONE<", ">TWO<", ">nm<", ">3800<"}) EXPECT_TRUE(has(plain, word)) << word;
    EXPECT_FALSE(has(plain, "TERRAIN DATA MISSING") || has(plain, "Descent") || has(plain, "<image")) << plain;
    const std::string high = draw(plan, {"--altitude", "5800"});
    EXPECT_TRUE(has(high, ">Descent 26.8 nm<") && has(high, "R FIELD  50 / 60")) << high;
    EXPECT_FALSE(has(high, "#ffcc00")) << "the land is far below";
    EXPECT_TRUE(
        has(draw(plan, {"--altitude", "3500"}), "#ff0000") || has(draw(plan, {"--altitude", "3500"}), "#ffcc00"));
    EXPECT_NE(draw(plan, {"--scheme", "<Night-Flight>"}), plain);
    const std::string beyond = folder.write("b.fp", "f.ONE 47.5 8.1\nf.FAR 47.5 9.9\n").string();
    EXPECT_TRUE(has(draw(beyond, {}), "TERRAIN DATA MISSING")) << "there is one tile";
    EXPECT_TRUE(has(draw(folder.write("one.fp", "f.ONE 47.5 8.1\n").string(), {}), "The plan leads nowhere"));
    EXPECT_NE(draw(plan, {"--altitude", "high"}), plain);
}

/// The four bytes there, the highest first.
std::uint32_t numberAt(const std::string& bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(at, 4)) number = number << 8U | static_cast<unsigned char>(byte);
    return number;
}

TEST(Tool, DrawsTheGroundAsShapesAndAsPixels) {
    const TempFolder folder;
    const auto draw = [&](const std::string& file) {
        const ToolResult result = runTool({"--data", folder.path().string(), "draw", "map", "--size", "320x240", "--at",
            "45,45", "--range", "100", "-o", (folder / file).string()});
        EXPECT_EQ(result.status, 0) << result.errors;
        return folder.read(file);
    };
    const std::string shapesBefore = draw("a.svg");
    folder.write("small.map", smallMap());
    const std::string shapes = draw("b.svg");
    EXPECT_GT(shapes.size(), shapesBefore.size());
    EXPECT_EQ(shapes.find("<image"), std::string::npos);
    std::filesystem::rename(folder / "small.map", folder / "small.off");
    if (!KORVEL_DRAWS_PNG) GTEST_SKIP() << "built without the toolkit";
    const std::string pixelsBefore = draw("a.PNG");
    ASSERT_EQ(pixelsBefore.substr(0, 8), "\x89PNG\r\n\x1A\n");
    EXPECT_EQ(numberAt(pixelsBefore, 16), 320U);
    EXPECT_EQ(numberAt(pixelsBefore, 20), 240U);
    std::filesystem::rename(folder / "small.off", folder / "small.map");
    EXPECT_NE(draw("b.png"), pixelsBefore);
}

}}  // namespace korvel
