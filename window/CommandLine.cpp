#include "window/CommandLine.h"

#include <array>
#include <charconv>
#include <cmath>

namespace korvel {
namespace {

constexpr int kSmallestSide = 160;
constexpr int kLargestSide = 8192;

template <class Number>
std::optional<Number> number(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<double> numberFrom(std::string_view text, double lowest) {
    const auto value = number<double>(text);
    return value && std::isfinite(*value) && *value >= lowest ? value : std::nullopt;
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
    const auto speed = numberFrom(text, 0);
    result.speed = speed.value_or(0);
    return result.speed > 0;
}

bool readAfter(std::string_view text, CommandLine& result) {
    const auto seconds = numberFrom(text, 0);
    result.afterSec = seconds.value_or(0);
    return seconds.has_value();
}

bool readRange(std::string_view text, CommandLine& result) {
    result.rangeNm = number<int>(text);
    return result.rangeNm && *result.rangeNm > 0;
}

bool readTimeFactor(std::string_view text, CommandLine& result) {
    constexpr int kFastest = 60;
    const auto factor = number<int>(text);
    result.timeFactor = factor.value_or(0);
    return result.timeFactor >= 1 && result.timeFactor <= kFastest;
}

/// An option that takes a value. `wanted` completes "--size: " in the error text.
struct Option {
    std::string_view name;
    std::string_view wanted;
    bool (*read)(std::string_view, CommandLine&);
};

constexpr std::array<Option, 10> kOptions = {{
    {"--profile-folder", "a folder is missing",
     [](auto text, auto& result) { return readText(text, result.profileFolder); }},
    {"--replay", "a file is missing",
     [](auto text, auto& result) { return readText(text, result.replayFile); }},
    {"--speed", "a number above 0 is wanted, such as 2", readSpeed},
    {"--time-factor", "a whole number from 1 to 60 is wanted, such as 10", readTimeFactor},
    {"--snapshot", "a file is missing",
     [](auto text, auto& result) { return readText(text, result.snapshotFile); }},
    {"--size", "WIDTHxHEIGHT in pixels from 160 to 8192 is wanted, such as 1280x800", readSize},
    {"--after", "a number of seconds is wanted, such as 3", readAfter},
    {"--page", "the name of a page is missing",
     [](auto text, auto& result) { return readText(text, result.page); }},
    {"--scheme", "the name of a colour scheme is missing",
     [](auto text, auto& result) { return readText(text, result.scheme); }},
    {"--range", "a whole number of nautical miles is wanted, such as 65", readRange},
}};

std::string complaint(std::string_view about, std::string_view text) {
    return std::string(about).append(": ").append(text);
}

/// Takes one option that has a value, given as "--name value" or "--name=value".
std::string readOption(std::span<const std::string_view> arguments, std::size_t& at,
                       CommandLine& result) {
    const std::string_view argument = arguments[at];
    const std::size_t equals = argument.find('=');
    const std::string_view name = argument.substr(0, equals);
    for (const Option& option : kOptions) {
        if (option.name != name)
            continue;
        std::string_view value;
        if (equals != std::string_view::npos)
            value = argument.substr(equals + 1);
        else if (at + 1 < arguments.size())
            value = arguments[++at];
        return option.read(value, result) ? std::string() : complaint(name, option.wanted);
    }
    return complaint(argument, "there is no such option (see --help)");
}

}  // namespace

std::string parseCommandLine(std::span<const std::string_view> arguments, CommandLine& result) {
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string_view argument = arguments[at];
        std::string error;
        if (argument == "--help" || argument == "-h")
            result.help = true;
        else if (argument == "--version")
            result.version = true;
        else if (argument == "--demo")
            result.demo = true;
        else if (argument == "--sim")
            result.simulate = true;
        else if (argument.starts_with("-") && argument.size() > 1)
            error = readOption(arguments, at, result);
        else if (result.planFile.empty())
            result.planFile = argument;
        else
            error = complaint(argument, "only one flight plan can be opened");
        if (!error.empty())
            return error;
    }
    if (result.demo && !result.replayFile.empty())
        return "--demo and --replay exclude each other";
    return {};
}

std::string_view commandLineHelp() {
    return "korvel [PLAN.fp] [options]\n"
           "  --version             say which version this is\n"
           "  --profile-folder DIR  keep korvel.ini in DIR\n"
           "  --replay FILE         fly a receiver's log instead of a receiver\n"
           "  --demo                fly the demonstration flight\n"
           "  --speed X             replay X times faster\n"
           "  --sim                 start the simulator at once\n"
           "  --time-factor N       let its time pass N times faster, up to 60\n"
           "  --page NAME           start on this page, such as Map\n"
           "  --scheme NAME         colour scheme of this run, such as \"<Night-Flight>\"\n"
           "  --range NM            start at this range\n"
           "  --snapshot OUT.png    write a picture of the window and end\n"
           "  --size WxH            size of the window in the picture (1280x800)\n"
           "  --after SECONDS       time from the first painting to the picture (3)\n";
}

}  // namespace korvel
