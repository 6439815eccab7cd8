#include "paint/ColorScheme.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "base/Ascii.h"
#include "base/TextNumbers.h"
#include "config/DataFileSearch.h"
#include "config/ProfileFile.h"
#include "config/Text.h"
#include "config/TextBytes.h"
#include "config/texts/StatusTexts.h"
#include "paint/BuiltInSchemes.h"
#include "platform/FileIo.h"

namespace korvel {
namespace {

constexpr std::string_view kSchemeFileKey = "SchemeFile";
/// One read takes this much; a file that fills it may be longer and is not trusted.
constexpr std::size_t kFileLimit = 20480;
/// "%d,%d,%d"; each number counts modulo 256.
std::optional<ColorValue> readTriple(std::string_view text) {
    std::array<unsigned, 3> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) {
            if (!text.starts_with(','))
                return std::nullopt;
            text.remove_prefix(1);
        }
        const std::optional<int> number = scanInt(text);
        if (!number)
            return std::nullopt;
        parts[i] = static_cast<unsigned>(*number);
    }
    return Rgb(parts[0], parts[1], parts[2]);
}

std::optional<ColorValue> readHex(std::string_view text) {
    const std::optional<unsigned> number = scanHex(text);
    if (!number)
        return std::nullopt;
    return Rgb(*number >> 16U, *number >> 8U, *number);
}

/// Not translated: the settings keep the name, and the language may change.
std::string inBrackets(const Text& id, std::string_view suffix = {}) {
    std::string name = "<";
    name += id.english;
    name += suffix;
    return name += '>';
}

ColorValue BuiltInColor::*columnOf(std::string_view schemeName) {
    if (schemeName == nightSchemeName())
        return &BuiltInColor::night;
    return schemeName == glassSchemeName() ? &BuiltInColor::glass : &BuiltInColor::day;
}

}  // namespace

ColorScheme::ColorScheme() { load({}, DataFileSearch({})); }

ColorScheme::ColorScheme(ProfileFile& profile, const DataFileSearch& files)
    : profile_(&profile), files_(&files) {
    Reload();
}

void ColorScheme::Reload() {
    if (profile_ != nullptr && files_ != nullptr)
        load(profile_->getString(kOptionsSection, kSchemeFileKey, ""), *files_);
}

void ColorScheme::load(std::string_view schemeName, const DataFileSearch& files, FileSystem& disk) {
    entries_.clear();
    const std::string name = fullSchemeName(schemeName);
    const auto column = columnOf(name);
    for (const BuiltInColor& color : kBuiltInColors)
        set(color.key, color.*column);
    if (column != &BuiltInColor::day || name.empty() || name == daySchemeName())
        return;
    if (name == secondDaySchemeName()) {
        for (const OverridingColor& color : kSecondDayColors)
            set(color.key, color.color);
        set("map.obs.danger", Color("geo.topo.danger"));
        set("map.obs.caution", Color("geo.topo.warning"));
        return;
    }
    for (const std::filesystem::path& file : files.pathsOf(name)) {
        if (const std::optional<std::string> bytes = readWholeFile(file, kFileLimit, disk)) {
            if (bytes->size() < kFileLimit)
                parseText(*bytes);
            return;
        }
    }
}

ColorValue ColorScheme::Color(std::string_view key) const {
    const auto place = std::ranges::lower_bound(entries_, key, {}, &Entry::first);
    return place != entries_.end() && place->first == key ? place->second : Rgb(0, 0, 0);
}

void ColorScheme::set(std::string_view key, ColorValue color) {
    const auto place = std::ranges::lower_bound(entries_, key, {}, &Entry::first);
    if (place != entries_.end() && place->first == key)
        place->second = color;
    else
        entries_.emplace(place, key, color);
}

void ColorScheme::ParseLine(std::string_view line) {
    line = line.substr(0, line.find(';'));
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return;
    const std::string_view value = line.substr(equals + 1);
    std::optional<ColorValue> color = readTriple(value);
    if (!color)
        color = readHex(value);
    if (color)
        set(trimmed(line.substr(0, equals)), *color);
}

void ColorScheme::parseText(std::string_view bytes) {
    std::string decoded = decodeTextBytes(bytes);
    std::erase(decoded, '\r');
    std::string_view rest = decoded;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        ParseLine(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

std::string daySchemeName() { return inBrackets(kStatusTexts.daySchemeName); }
std::string secondDaySchemeName() { return inBrackets(kStatusTexts.daySchemeName, "2"); }
std::string nightSchemeName() { return inBrackets(kStatusTexts.nightSchemeName); }
std::string glassSchemeName() { return inBrackets(kStatusTexts.glassSchemeName); }

std::string fullSchemeName(std::string_view name) {
    return name == kStatusTexts.glassSchemeName.english ? glassSchemeName() : std::string(name);
}

std::vector<std::string> listSchemes(const DataFileSearch& files) {
    std::vector<std::string> list{daySchemeName(), secondDaySchemeName(), nightSchemeName(),
                                  glassSchemeName()};
    for (std::string& name : files.findNames("*.SCM"))
        list.push_back(std::move(name));
    return list;
}

std::size_t selectedScheme(std::span<const std::string> list, std::string_view stored) {
    if (stored.empty())
        return 0;
    const auto place =
        std::ranges::find_if(list, [wanted = fullSchemeName(stored)](const std::string& name) {
            return startsWithIgnoringCase(name, wanted);
        });
    return place == list.end() ? 0 : static_cast<std::size_t>(place - list.begin());
}

}  // namespace korvel
