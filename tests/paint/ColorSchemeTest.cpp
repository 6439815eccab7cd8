#include <gtest/gtest.h>

#include "CommaLocale.h"
#include "TempFolder.h"
#include "config/DataFileSearch.h"
#include "config/ProfileFile.h"
#include "paint/ColorScheme.h"
#include "paint/MapColorCache.h"
#include "platform/FaultyFiles.h"
#include "platform/RegistryProfile.h"

namespace korvel { namespace {

using namespace std::string_literals;
using Colors = std::map<std::string, ColorValue, std::less<>>;

Colors colorsOf(const ColorScheme& scheme) { return {scheme.entries().begin(), scheme.entries().end()}; }

/// What a scheme changes in the day scheme.
Colors changes(const ColorScheme& scheme) {
    Colors changed = colorsOf(scheme);
    const ColorScheme day;
    for (const auto& [key, color] : day.entries()) {
        const auto same = changed.find(key);
        if (same != changed.end() && same->second == color) changed.erase(same);
    }
    return changed;
}

ColorScheme named(std::string_view name, const DataFileSearch& files = DataFileSearch({})) {
    ColorScheme scheme;
    scheme.load(name, files);
    return scheme;
}

TEST(ColorScheme, AFileThatCannotBeReadLeavesTheDayScheme) {
    const TempFolder folder;
    folder.write("own.SCM", "geo.water = 1,2,3\r\n");
    const DataFileSearch files({folder.path()});
    const Colors whole = changes(named("own.SCM", files));
    EXPECT_EQ(whole.size(), 1U);
    atEveryFault([&](FaultyFiles& disk) {
        ColorScheme scheme;
        scheme.load("own.SCM", files, disk);
        EXPECT_EQ(changes(scheme), disk.hasFailed() ? Colors{} : whole);
    });
}

TEST(ColorScheme, BuiltInSchemes) {
    for (const char* name : {"", "<Default>", "<default2>", "nowhere.SCM"})
        EXPECT_EQ(changes(named(name)), Colors{}) << name;
    EXPECT_EQ(colorsOf(ColorScheme()).size(), 43U);
    EXPECT_EQ(
        changes(named("<Default2>")), (Colors{{"map.vor", Rgb(255, 255, 255)}, {"geo.land", Rgb(0, 192, 128)},
                                          {"geo.populated", Rgb(238, 232, 170)}, {"map.airport", Rgb(153, 0, 204)},
                                          {"map.obs.caution", Rgb(255, 204, 0)}, {"hsi.bearing", Rgb(255, 102, 0)}}));

    // A few of each scheme, from all of the table.
    const std::tuple<const char*, ColorValue, ColorValue> rows[] = {
        {"hsi.numeral", Rgb(0, 0, 0), Rgb(223, 223, 223)},
        {"map.class_b", Rgb(0, 0, 204), Rgb(0, 0, 204)},
        {"map.class_c", Rgb(204, 0, 204), Rgb(0, 204, 0)},
        {"geo.water", Rgb(102, 153, 255), Rgb(0, 0, 102)},
        {"geo.topo.polbnd", Rgb(153, 153, 153), Rgb(51, 51, 51)},
        {"no.such.key", 0, 0},
    };
    const ColorScheme day;
    const ColorScheme night = named("<Night-Flight>");
    for (const auto& [key, dayColor, nightColor] : rows) {
        EXPECT_EQ(day.Color(key), dayColor) << key;
        EXPECT_EQ(night.Color(key), nightColor) << key;
    }
    EXPECT_EQ(night.entries().size(), 43U);
}

/// Cyan, magenta, amber or red by the hue that the eye sees; 0 for what is too grey to be either.
char hueOf(ColorValue color) {
    const double r = RedOf(color), g = GreenOf(color), b = BlueOf(color);
    const double most = std::max({r, g, b}), range = most - std::min({r, g, b});
    if (range < 0.45 * most) return 0;
    const double sixths = most == r ? (g - b) / range : most == g ? 2 + (b - r) / range : 4 + (r - g) / range;
    return sixths > -0.25 && sixths <= 1           ? 'a'
           : sixths > 2.75 && sixths < 3.25        ? 'c'
           : std::abs(sixths) > 0.75 && sixths < 0 ? 'm'
                                                   : 0;
}

TEST(ColorScheme, InGlassEachStrongColorHasOneMeaning) {
    const ColorScheme glass = named("<Glass>");
    EXPECT_EQ(colorsOf(glass), colorsOf(named("Glass")));
    EXPECT_EQ(glass.entries().size(), 43U);
    const std::map<std::string_view, char> meanings = {{"map.navaid", 'c'}, {"map.runway.heading", 'c'},
        {"nav.header", 'c'}, {"map.flightplan.active", 'm'}, {"hsi.needle", 'm'}, {"map.obs.danger", 'a'},
        {"map.obs.caution", 'a'}, {"geo.topo.danger", 'a'}, {"geo.topo.warning", 'a'}};
    for (const auto& [key, color] : glass.entries()) {
        const auto meant = meanings.find(key);
        EXPECT_EQ(hueOf(color), meant == meanings.end() ? 0 : meant->second) << key;
    }
    for (const char* ground : {"map.background", "geo.land", "geo.water", "nav.background"})
        EXPECT_LT(lightOf(glass.Color(ground)), 60) << ground;
    EXPECT_GT(lightOf(glass.Color("nav.text")), 240);
}

TEST(ColorScheme, WhatIsChosenStandsOutOverThePage) {
    for (const auto& [name, key] : {std::pair{"", "nav.background"}, {"<Night-Flight>", "nav.background"},
             {"<Default2>", "nav.background"}, {"<Glass>", "map.info.background"}}) {
        const ColorScheme scheme = named(name);
        const MapColorCache cache(scheme);
        EXPECT_EQ(cache.chosenGround(), scheme.Color(key)) << name;
        EXPECT_GT(lightOf(cache.chosenInk()) - lightOf(cache.chosenGround()), 120) << name;
    }
}

TEST(ColorScheme, ParsesLines) {
    const std::tuple<std::string_view, Colors> cases[] = {
        {"geo.water = 0, 0, 128 ; comment", {{"geo.water", Rgb(0, 0, 128)}}},
        {"geo.water = 300,0,0", {{"geo.water", Rgb(44, 0, 0)}}},
        {"geo.water=-1,256,511", {{"geo.water", Rgb(255, 0, 255)}}},
        {"geo.water = 255 0 0", {{"geo.water", Rgb(0, 2, 85)}}},
        {"geo.water = 1 ,2,3", {{"geo.water", Rgb(0, 0, 1)}}},
        {"geo.water = 1,2", {{"geo.water", Rgb(0, 0, 1)}}},
        {"geo.water = #0000FF", {}},
        {"geo.water = FF8001", {{"geo.water", Rgb(255, 128, 1)}}},
        {"geo.water = 0xff8001 x", {{"geo.water", Rgb(255, 128, 1)}}},
        {"geo.water = 1,2,3=4", {{"geo.water", Rgb(1, 2, 3)}}},
        {"; geo.water = 0,0,255", {}},
        {"geo.water ; = 0,0,255", {}},
        {"geo.water", {}},
        {"geo.water =", {}},
        {" Geo.Water=0,0,255", {{"Geo.Water", Rgb(0, 0, 255)}}},
        {"\t=1,2,3", {{"", Rgb(1, 2, 3)}}},
        {"", {}},
    };
    const CommaLocale comma;
    for (const auto& [line, changed] : cases) {
        ColorScheme scheme;
        scheme.ParseLine(line);
        EXPECT_EQ(changes(scheme), changed) << line;
    }
}

std::string utf16(std::string_view text) {
    std::string wide;
    for (const char c : text) {
        wide += c;
        wide += '\0';
    }
    return wide;
}

TEST(ColorScheme, ReadsFiles) {
    const TempFolder folder;
    const DataFileSearch files({folder.path()});
    const std::string text = "a.b=1,2,3\r\ngeo.water=4,\r5,6\n\ngeo.water=7,8,9";
    const std::string padding(20479 - text.size() - 1, ';');
    const std::tuple<std::string, bool> cases[] = {{text, true}, {utf16(text), true}, {"\xFF\xFE" + utf16(text), true},
        {"\xFF\xFE" + utf16(text) + "x", true}, {text + "\n" + padding, true}, {text + "\n" + padding + ";", false},
        {text + "\n" + padding + ";;", false}, {"", false}};
    const Colors expected = {{"a.b", Rgb(1, 2, 3)}, {"geo.water", Rgb(7, 8, 9)}};
    for (const auto& [bytes, read] : cases) {
        folder.write("my.scm", bytes);
        EXPECT_EQ(changes(named("MY.SCM", files)), read ? expected : Colors{}) << bytes.size();
    }
}

TEST(ColorScheme, ReloadFollowsTheSettingAndForgetsTheSchemeBefore) {
    const TempFolder folder;
    folder.write("user/sea.SCM", "own.key=1,1,1\nmap.vor=9,9,9\ngeo.land=8,8,8");
    folder.write("own/SEA.scm", "own.key=2,2,2");
    folder.write("own/_hidden.SCM", "own.key=3,3,3");
    const DataFileSearch files({folder.path() / "user", folder.path() / "own"});
    const auto registry = openRegistryProfile();
    ProfileFile profile(folder.path(), *registry);
    profile.setString("Options", "SchemeFile", "sea.SCM", true);

    ColorScheme scheme(profile, files);
    MapColorCache cache(scheme);
    EXPECT_EQ(scheme.Color("own.key"), Rgb(1, 1, 1));
    EXPECT_EQ(cache.vorPen().color, Rgb(9, 9, 9));
    EXPECT_EQ(cache.terrainSymbolBackground(), Rgb(8, 8, 8));

    profile.setString("Options", "SchemeFile", "<Night-Flight>", true);
    scheme.Reload();
    cache.refresh(scheme);
    EXPECT_EQ(scheme.Color("own.key"), 0U);
    for (std::size_t i = 0; i < kColorKeyCount; ++i) {
        const auto key = static_cast<ColorKey>(i);
        EXPECT_EQ(cache[key], scheme.Color(colorKeyText(key))) << colorKeyText(key);
    }
    EXPECT_EQ(colorKeyText(ColorKey::GeoWarning), "geo.topo.warning");
    EXPECT_EQ(colorKeyText(ColorKey::MapClassB), "map.class_b");
    EXPECT_EQ(cache.ndbPen().color, Rgb(255, 102, 0));
    EXPECT_EQ(cache.ndbPen().width, 1);
    EXPECT_EQ(cache.plainSymbolBackground(), 0U);

    const std::vector<std::string> list = listSchemes(files);
    EXPECT_EQ(list, (std::vector<std::string>{"<Default>", "<Default2>", "<Night-Flight>", "<Glass>", "sea.SCM"}));
    const std::pair<const char*, std::size_t> selections[] = {{"", 0}, {"<DEFAULT2>", 1}, {"<Default", 0},
        {"<night-flight>", 2}, {"glass", 0}, {"Glass", 3}, {"<gl", 3}, {"SEA.scm", 4}, {"se", 4}, {"gone.SCM", 0},
        {"sea.SCM.old", 0}};
    for (const auto& [stored, index] : selections) EXPECT_EQ(selectedScheme(list, stored), index) << stored;
}

}}  // namespace korvel
