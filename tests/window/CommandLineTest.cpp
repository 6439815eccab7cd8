#include <gtest/gtest.h>

#include "window/CommandLine.h"

namespace korvel { namespace {

std::string parse(const std::vector<std::string_view>& arguments, CommandLine& result) {
    return parseCommandLine(arguments, result);
}

TEST(CommandLine, TakesEveryOptionInBothForms) {
    CommandLine line;
    EXPECT_EQ(parse({"trip.fp", "--replay=a.log", "--speed", "2.5", "--snapshot", "o.png", "--size", "800x480",
                        "--after=0", "--page", "Map", "--sim", "--time-factor=30", "--scheme=<Night-Flight>", "--range",
                        "25", "--profile-folder", "/tmp/p", "--language=de"},
                  line),
        "");
    EXPECT_EQ(std::tuple(line.planFile, line.replayFile, line.snapshotFile, line.profileFolder),
        std::tuple("trip.fp", "a.log", "o.png", "/tmp/p"));
    EXPECT_EQ(
        std::tuple(line.page, line.scheme, line.language, line.rangeNm), std::tuple("Map", "<Night-Flight>", "de", 25));
    EXPECT_EQ(std::tuple(line.speed, line.width, line.height, line.afterSec, line.simulate, line.timeFactor),
        std::tuple(2.5, 800, 480, 0, true, 30));
}

TEST(CommandLine, TheLastOfTwoStandsAndHelpNamesThemAll) {
    CommandLine line;
    EXPECT_EQ(parse({"--range", "25", "--range=40", "--demo"}, line), "");
    EXPECT_EQ(line.rangeNm, 40);
    EXPECT_TRUE(line.demo && !line.simulate && !line.version);
    EXPECT_EQ(line.help, "");
    EXPECT_EQ(parse({"-h"}, line), "");
    for (const char* option : {"PLAN.fp", "--version", "--profile-folder DIR", "--replay FILE", "--demo", "--speed X",
             "--sim", "--time-factor N", "--page NAME", "--scheme NAME", "--range NM", "--snapshot OUT.png",
             "--size WxH", "--after SECONDS"})
        EXPECT_NE(line.help.find(option), std::string::npos) << option;
}

TEST(CommandLine, ToldWhatAValueMustBe) {
    CommandLine line;
    EXPECT_EQ(
        parse({"--size", "800"}, line), "--size: WIDTHxHEIGHT in pixels from 160 to 8192 is wanted, such as 1280x800");
    EXPECT_EQ(parse({"--speed", "0,5"}, line), "--speed: a number above 0 is wanted, such as 2");
    EXPECT_EQ(parse({"--demo", "--replay", "a.log"}, line), "--demo excludes --replay");
}

TEST(CommandLine, SaysInOneLineWhatIsWrong) {
    const std::vector<std::vector<std::string_view>> wrong = {{"--speed", "0"}, {"--speed", "-1"}, {"--speed", "fast"},
        {"--speed", "2x"}, {"--speed", "nan"}, {"--speed"}, {"--size", "800"}, {"--size", "800x"}, {"--size", "0x0"},
        {"--size", "800x99999"}, {"--after", "-1"}, {"--after", "inf"}, {"--range", "2.5"}, {"--range", "0"},
        {"--time-factor", "61"}, {"--replay="}, {"--snapshot"}, {"--nonsense"}, {"--demo", "--replay", "a.log"},
        {"a.fp", "b.fp"}};
    for (const auto& arguments : wrong) {
        CommandLine line;
        const std::string error = parse(arguments, line);
        EXPECT_NE(error, "") << arguments.front();
        EXPECT_EQ(error.find('\n'), std::string::npos);
        EXPECT_NE(
            error.find(arguments.size() > 1 && !arguments.front().starts_with("--") ? arguments.back()
                                                                                    : arguments.front().substr(0, 8)),
            std::string::npos)
            << error;
    }
}

}}  // namespace korvel
