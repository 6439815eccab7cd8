#include "compiler/sources/Fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "base/Ascii.h"

namespace korvel {

namespace {

constexpr std::string_view kBlanks = " \t";

template <class Number>
std::optional<Number> whole(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    return value;
}

std::optional<double> within(std::string_view text, double limit) {
    const auto value = wholeDouble(text);
    return value && std::abs(*value) <= limit ? value : std::nullopt;
}

}  // namespace

std::optional<double> wholeDouble(std::string_view text) {
    const auto value = whole<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<int> wholeInt(std::string_view text) { return whole<int>(text); }

std::optional<double> latitudeDeg(std::string_view text) { return within(text, 90.0); }

std::optional<double> longitudeDeg(std::string_view text) { return within(text, 180.0); }

std::optional<double> variationDeg(std::string_view text) { return within(text, 180.0); }

void Fields::split(std::string_view line) {
    line_ = line;
    words_.clear();
    std::size_t at = line.find_first_not_of(kBlanks);
    while (at != std::string_view::npos) {
        const auto end = std::min(line.find_first_of(kBlanks, at), line.size());
        words_.push_back(line.substr(at, end - at));
        at = line.find_first_not_of(kBlanks, end);
    }
}

std::string_view Fields::from(std::size_t i) const {
    if (i >= words_.size())
        return {};
    const auto start = static_cast<std::size_t>(words_[i].data() - line_.data());
    return trimmed(line_.substr(start));
}

}  // namespace korvel
