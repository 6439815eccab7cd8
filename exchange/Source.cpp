#include "exchange/Source.h"

#include <cmath>
#include <utility>

#include "base/Ascii.h"
#include "base/Calendar.h"
#include "base/TextNumbers.h"
#include "base/Utf8.h"
#include "geo/Geodesy.h"

namespace korvel {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool beginsLikeXml(std::string_view text) {
    for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"})
        if (text.starts_with(mark))
            text.remove_prefix(mark.size());
    while (!text.empty() &&
           (kBlanks.find(text.front()) != std::string_view::npos || text.front() == '\0'))
        text.remove_prefix(1);
    return text.starts_with('<');
}

/// Takes a number of exactly `digits` digits.
std::optional<int> takeDigits(std::string_view& text, std::size_t digits) {
    int value = 0;
    if (text.size() < digits)
        return std::nullopt;
    for (const char c : text.substr(0, digits)) {
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + (c - '0');
    }
    text.remove_prefix(digits);
    return value;
}

bool takeMark(std::string_view& text, char mark) {
    const bool isThere = text.starts_with(mark);
    if (isThere)
        text.remove_prefix(1);
    return isThere;
}

/// "Z", nothing, or "+02:00": seconds that the zone is ahead.
std::optional<int> takeZone(std::string_view text) {
    if (text.empty() || text == "Z" || text == "z")
        return 0;
    const bool isAhead = text.front() == '+';
    if (!isAhead && text.front() != '-')
        return std::nullopt;
    text.remove_prefix(1);
    const auto hours = takeDigits(text, 2);
    takeMark(text, ':');
    const auto minutes = text.empty() ? std::optional(0) : takeDigits(text, 2);
    if (!hours || !minutes || !text.empty() || *hours > 14 || *minutes > 59)
        return std::nullopt;
    const int seconds = *hours * 3600 + *minutes * 60;
    return isAhead ? seconds : -seconds;
}

}  // namespace

Source::Source(std::string bytes) : text_(std::move(bytes)) {
    looksLikeXml_ = beginsLikeXml(text_);
    if (!looksLikeXml_)
        return;
    const auto result = document_.load_buffer_inplace(
        text_.data(), text_.size(), pugi::parse_default | pugi::parse_trim_pcdata);
    if (result.status == pugi::status_ok)
        rootName_ = localName(root());
}

std::string_view localName(pugi::xml_node node) {
    const std::string_view name = node.name();
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

pugi::xml_node childNamed(pugi::xml_node node, std::string_view name) {
    for (const pugi::xml_node child : node.children())
        if (localName(child) == name)
            return child;
    return {};
}

std::string_view childValue(pugi::xml_node node, std::string_view name) {
    return childNamed(node, name).text().get();
}

std::string childText(pugi::xml_node node, std::string_view name) {
    return asUtf8(trimmed(childValue(node, name), kBlanks));
}

std::string attributeText(pugi::xml_node node, const char* name) {
    return asUtf8(trimmed(node.attribute(name).as_string(), kBlanks));
}

std::string asUtf8(std::string_view text) {
    if (isUtf8(text))
        return std::string(text);
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            result += c;
        } else {
            result += static_cast<char>(0xC0U | (byte >> 6U));
            result += static_cast<char>(0x80U | (byte & 0x3FU));
        }
    }
    return result;
}

std::optional<double> wholeNumber(std::string_view text) {
    text = trimmed(text, kBlanks);
    const auto value = scanDouble(text);
    return value && text.empty() && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<GeoPoint> pointOf(std::string_view lat, std::string_view lon) {
    const auto latDeg = wholeNumber(lat);
    const auto lonDeg = wholeNumber(lon);
    if (!latDeg || !lonDeg || std::abs(*latDeg) > 90.0 || std::abs(*lonDeg) > 180.0)
        return std::nullopt;
    return GeoPoint{.lat = *latDeg * kDegToRad, .lon = *lonDeg * kDegToRad};
}

std::optional<std::int64_t> utcOf(std::string_view iso) {
    std::string_view rest = trimmed(iso, kBlanks);
    const auto year = takeDigits(rest, 4);
    const auto month = takeMark(rest, '-') ? takeDigits(rest, 2) : std::nullopt;
    const auto day = takeMark(rest, '-') ? takeDigits(rest, 2) : std::nullopt;
    if (!year || !month || !day || !(takeMark(rest, 'T') || takeMark(rest, ' ')))
        return std::nullopt;
    const auto hour = takeDigits(rest, 2);
    const auto minute = takeMark(rest, ':') ? takeDigits(rest, 2) : std::nullopt;
    const auto second = takeMark(rest, ':') ? takeDigits(rest, 2) : std::nullopt;
    if (!hour || !minute || !second)
        return std::nullopt;
    if (takeMark(rest, '.') || takeMark(rest, ','))
        while (takeDigits(rest, 1)) {
        }
    const auto zone = takeZone(rest);
    const LocalTime time{.year = *year,
                         .month = *month,
                         .day = *day,
                         .hour = *hour,
                         .minute = *minute,
                         .second = *second};
    if (!zone || !isCalendarTime(time))
        return std::nullopt;
    return localSeconds(time) - *zone;
}

}  // namespace korvel
