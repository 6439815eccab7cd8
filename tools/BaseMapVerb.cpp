#include <algorithm>
#include <string>
#include <vector>

#include "base/TextNumbers.h"
#include "ground/basemap/BaseMap.h"
#include "platform/PathText.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

/// The places of the land sheets among all, the most detailed first.
std::vector<std::size_t> landSheets(const BaseMapFile& file) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < file.sheets().size(); ++i)
        if (file.sheets()[i].kind == SheetKind::Land)
            places.push_back(i);
    std::ranges::stable_sort(places, {},
                             [&](std::size_t i) { return file.sheets()[i].metresPerPixelFrom; });
    return places;
}

/// "2026-11-26" of 20261126.
std::string dateText(std::uint32_t date) {
    std::string digits = std::to_string(date);
    digits.insert(0, 8 - std::min<std::size_t>(8, digits.size()), '0');
    return digits.substr(0, 4) + "-" + digits.substr(4, 2) + "-" + digits.substr(6);
}

/// How many bins have bytes of their own, and how many bytes.
Json levelJson(const BaseMapFile& file, const MapSheet& sheet) {
    std::uint64_t tiles = 0;
    std::uint64_t bytes = 0;
    for (int bin = 0; bin < sheet.bins(); ++bin) {
        const std::uint32_t size = file.extent(sheet, bin).size;
        tiles += size > 0 ? 1U : 0U;
        bytes += size;
    }
    const bool open = sheet.metresPerPixelTo == MapSheet::kNoLimit;
    return {{"metresPerPixelFrom", sheet.metresPerPixelFrom},
            {"metresPerPixelTo", open ? Json() : Json(sheet.metresPerPixelTo)},
            {"tiles", tiles},
            {"bytes", bytes}};
}

std::string infoText(const Json& document) {
    std::string plain = "version " + document["version"].dump() + ", made " +
                        document["made"].get<std::string>() + ", " + document["bytes"].dump() +
                        " bytes\n" + document["attribution"].get<std::string>();
    for (const char* kind : {"levels", "rivers", "borders"})
        for (const Json& level : document[kind])
            plain += std::string(kind) + ": " + level["tiles"].dump() + " tiles, " +
                     level["bytes"].dump() + " bytes, from " + level["metresPerPixelFrom"].dump() +
                     " m a pixel\n";
    return plain;
}

int printInfo(const Invocation& call, const std::string& path) {
    BaseMapFile file;
    if (const std::string error = file.open(pathOf(path)); !error.empty())
        return call.fail(error);
    Json levels = Json::array();
    Json rivers = Json::array();
    Json borders = Json::array();
    for (const std::size_t place : landSheets(file))
        levels.push_back(levelJson(file, file.sheets()[place]));
    for (const MapSheet& sheet : file.sheets())
        if (sheet.kind != SheetKind::Land)
            (sheet.kind == SheetKind::Rivers ? rivers : borders).push_back(levelJson(file, sheet));
    const Json document{{"error", ""},
                        {"version", kMapVersion},
                        {"made", dateText(file.made())},
                        {"attribution", file.attribution()},
                        {"levels", levels},
                        {"rivers", rivers},
                        {"borders", borders},
                        {"bytes", file.size()}};
    return call.done(document, infoText(document));
}

int printLand(const Invocation& call, const std::vector<std::string>& words, int level) {
    const GeoPoint point = toPosition(toNumber(words[0]), toNumber(words[1]));
    const auto paths = call.dataFiles().find("*.map");
    if (paths.empty())
        return call.fail("No base map in the data folder");
    BaseMap map;
    if (const std::string error = map.open(paths.front()); !error.empty())
        return call.fail(error);
    const auto sheets = landSheets(map.file());
    if (level < 0 || static_cast<std::size_t>(level) >= sheets.size())
        usageError("The map has no level " + formatInt(level));
    const bool land = map.isLand(sheets[static_cast<std::size_t>(level)], point);
    if (const auto problems = map.problems(); !problems.empty())
        return call.fail(problems.front());
    return call.done({{"land", land}}, land ? "land\n" : "water\n");
}

}  // namespace

int runBaseMap(Invocation& call) {
    std::string action;
    std::vector<std::string> words;
    int level = 0;
    call.options().add_option("action", action, "info or at")->required();
    call.options().add_option("words", words, "FILE (info), LAT LON (at)")->required();
    call.options().add_option("--level", level, "Degree of detail, 0 being the finest");
    call.parse();
    if (action == "info" && words.size() == 1)
        return printInfo(call, words[0]);
    if (action == "at" && words.size() == 2)
        return printLand(call, words, level);
    usageError("basemap takes info FILE or at LAT LON");
}

}  // namespace korvel
