#include "window/CommandLine.h"

#include <array>
#include <charconv>
#include <cmath>
#include <vector>

#include <CLI/CLI.hpp>

namespace korvel {
namespace {

constexpr int kSmallestSide = 160;
constexpr int kLargestSide = 8192;

/// All of the text, the same under every locale.
template <class Number>
std::optional<Number> number(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<double> finiteNumber(std::string_view text) {
    const auto value = number<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

bool readText(std::string_view text, std::string& result) {
    result = text;
    return !text.empty();
}

bool readSize(std::string_view text, CommandLine& result) {
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos)
        return false;
    const auto width = number<int>(text.substr(0, cross));
    const auto height = number<int>(text.substr(cross + 1));
    if (!width || !height || *width < kSmallestSide || *height < kSmallestSide ||
        *width > kLargestSide || *height > kLargestSide)
        return false;
    result.width = *width;
    result.height = *height;
    return true;
}

bool readSpeed(std::string_view text, CommandLine& result) {
    result.speed = finiteNumber(text).value_or(0);
    return result.speed > 0;
}

bool readAfter(std::string_view text, CommandLine& result) {
    result.afterSec = finiteNumber(text).value_or(-1);
    return result.afterSec >= 0;
}

bool readRange(std::string_view text, CommandLine& result) {
    result.rangeNm = number<int>(text);
    return result.rangeNm && *result.rangeNm > 0;
}

bool readTimeFactor(std::string_view text, CommandLine& result) {
    constexpr int kFastest = 60;
    result.timeFactor = number<int>(text).value_or(0);
    return result.timeFactor >= 1 && result.timeFactor <= kFastest;
}

/// An option that takes a value. `wanted` completes "--size: " in the error text.
struct Option {
    const char* name;
    const char* value;
    const char* help;
    const char* wanted;
    bool (*read)(std::string_view, CommandLine&);
};

constexpr std::array<Option, 11> kOptions = {{
    {"--profile-folder", "DIR", "Keep korvel.ini in DIR", "a folder is missing",
     [](auto text, auto& result) { return readText(text, result.profileFolder); }},
    {"--replay", "FILE", "Fly a receiver's log instead of a receiver", "a file is missing",
     [](auto text, auto& result) { return readText(text, result.replayFile); }},
    {"--speed", "X", "Replay X times faster", "a number above 0 is wanted, such as 2", readSpeed},
    {"--time-factor", "N", "Let the simulator's time pass N times faster, up to 60",
     "a whole number from 1 to 60 is wanted, such as 10", readTimeFactor},
    {"--page", "NAME", "Start on this page, such as Map", "the name of a page is missing",
     [](auto text, auto& result) { return readText(text, result.page); }},
    {"--scheme", "NAME", "Colour scheme of this run, such as \"<Night-Flight>\"",
     "the name of a colour scheme is missing",
     [](auto text, auto& result) { return readText(text, result.scheme); }},
    {"--language", "TAG", "Speak this language, such as de, not the system's",
     "a language is missing, such as de",
     [](auto text, auto& result) { return readText(text, result.language); }},
    {"--range", "NM", "Start at this range",
     "a whole number of nautical miles is wanted, such as 65", readRange},
    {"--snapshot", "OUT.png", "Write a picture of the window and end", "a file is missing",
     [](auto text, auto& result) { return readText(text, result.snapshotFile); }},
    {"--size", "WxH", "Size of the window in the picture (1280x800)",
     "WIDTHxHEIGHT in pixels from 160 to 8192 is wanted, such as 1280x800", readSize},
    {"--after", "SECONDS", "Time from the first painting to the picture (3)",
     "a number of seconds is wanted, such as 3", readAfter},
}};

/// The values go into `result`, which must outlive the parser.
void declare(CLI::App& app, CommandLine& result) {
    app.option_defaults()->take_last();
    app.add_option("PLAN.fp", result.planFile, "A flight plan or a track to open")->type_name("");
    app.add_flag("--version", result.version, "Say which version this is");
    CLI::Option* demo = app.add_flag("--demo", result.demo, "Fly the demonstration flight");
    app.add_flag("--sim", result.simulate, "Start the simulator at once");
    for (const Option& option : kOptions)
        app.add_option_function<std::string>(
               option.name,
               [&option, &result](const std::string& text) {
                   if (!option.read(text, result))
                       throw CLI::ValidationError(option.name, option.wanted);
               },
               option.help)
            ->type_name(option.value);
    demo->excludes("--replay");
}

}  // namespace

std::string parseCommandLine(std::span<const std::string_view> arguments, CommandLine& result) {
    CLI::App app("A moving map for pilots of light aircraft", "korvel");
    app.allow_windows_style_options(false);  // "/folder/plan.fp" is a file on every system
    try {
        declare(app, result);
        // It takes them from the back.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::CallForHelp&) {
        result.help = app.help();
    } catch (const CLI::Error& error) {
        return error.what();
    }
    return {};
}

}  // namespace korvel
