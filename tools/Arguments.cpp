#include "tools/Arguments.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>
#include <system_error>

#include <CLI/CLI.hpp>

#include "base/Calendar.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

template <class Number>
std::optional<Number> wholeNumber(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    Number value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

std::optional<LocalTime> readLocalTime(std::string_view text) {
    constexpr std::string_view kForm = "dddd-dd-ddTdd:dd:dd";
    const auto fits = [](char c, char form) {
        return form == 'd' ? c >= '0' && c <= '9' : c == form;
    };
    if (text.size() != kForm.size() || !std::ranges::equal(text, kForm, fits))
        return std::nullopt;
    const auto part = [text](std::size_t start, std::size_t length) {
        return wholeNumber<int>(text.substr(start, length)).value_or(-1);
    };
    const LocalTime time{part(0, 4), part(5, 2), part(8, 2), part(11, 2), part(14, 2), part(17, 2)};
    return isCalendarTime(time) ? std::optional(time) : std::nullopt;
}

}  // namespace

void usageError(const std::string& message) {
    throw CLI::ValidationError(message, CLI::ExitCodes::ValidationError);
}

double toNumber(std::string_view text) {
    const std::optional<double> value = wholeNumber<double>(text);
    if (!value || !std::isfinite(*value))
        usageError("Not a number: " + std::string(text));
    return *value;
}

int toInt(std::string_view text) {
    const std::optional<int> value = wholeNumber<int>(text);
    if (!value)
        usageError("Not a whole number of 32 bits: " + std::string(text));
    return *value;
}

std::vector<double> toNumbers(std::string_view text, std::size_t least, std::size_t most) {
    std::vector<double> numbers;
    std::string_view rest = text;
    for (;;) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        numbers.push_back(toNumber(rest.substr(0, comma)));
        if (comma == rest.size())
            break;
        rest.remove_prefix(comma + 1);
    }
    if (numbers.size() < least || numbers.size() > most)
        usageError("Wrong count of numbers: " + std::string(text));
    return numbers;
}

GeoPoint toPosition(double latDeg, double lonDeg) {
    if (std::abs(latDeg) > 90)
        usageError("Latitude beyond 90 degrees");
    if (std::abs(lonDeg) > 180)
        usageError("Longitude beyond 180 degrees");
    return {latDeg * kDegToRad, lonDeg * kDegToRad};
}

GeoPoint toPosition(std::string_view text) {
    const std::vector<double> degrees = toNumbers(text, 2, 2);
    return toPosition(degrees[0], degrees[1]);
}

LocalTime toLocalTime(std::string_view text) {
    const std::optional<LocalTime> time = readLocalTime(text);
    if (!time)
        usageError("Not a time YYYY-MM-DDTHH:MM:SS: " + std::string(text));
    return *time;
}

}  // namespace korvel
