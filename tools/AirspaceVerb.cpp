#include <optional>
#include <string>
#include <vector>

#include "base/TextNumbers.h"
#include "geo/Geodesy.h"
#include "ground/airspace/AirspaceSet.h"
#include "ground/airspace/OpenAir.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

Json limitJson(const AltitudeLimit& limit) {
    const auto reference = [&limit] {
        switch (limit.reference) {
            case LimitReference::Msl:
                return "MSL";
            case LimitReference::Agl:
                return "AGL";
            case LimitReference::FlightLevel:
                return "FL";
            case LimitReference::Unlimited:
                return "UNL";
            case LimitReference::Unknown:
                break;
        }
        return "?";
    };
    return {{"text", limit.text},
            {"ft", limit.ft ? Json(*limit.ft) : Json()},
            {"reference", reference()}};
}

Json airspaceJson(const Airspace& airspace) {
    const AirspaceBox box = airspace.box();
    Json document{{"name", airspace.name},
                  {"class", airspace.airspaceClass},
                  {"floor", limitJson(airspace.floor)},
                  {"ceiling", limitJson(airspace.ceiling)},
                  {"frequency", airspace.frequency.empty() ? Json() : Json(airspace.frequency)},
                  {"line", airspace.line},
                  {"points", airspace.points()},
                  {"box", {box.south, box.west, box.north, box.east}},
                  {"areaNm2", airspace.areaNm2()}};
    if (!airspace.type.empty())
        document["type"] = airspace.type;
    return document;
}

std::string airspaceLine(const Airspace& airspace) {
    return airspace.airspaceClass + "  " + airspace.name + "  " + airspace.floor.text + " - " +
           airspace.ceiling.text + (airspace.frequency.empty() ? "" : "  " + airspace.frequency) +
           "\n";
}

int listFile(const Invocation& call, const std::string& path) {
    const auto bytes = readWholeFile(pathOf(path));
    if (!bytes)
        return call.fail("File Open Error: " + path);
    const OpenAirFile file = readOpenAir(*bytes);
    Json airspaces = Json::array();
    Json problems = Json::array();
    std::string plain;
    for (const Airspace& airspace : file.airspaces) {
        airspaces.push_back(airspaceJson(airspace));
        plain += airspaceLine(airspace);
    }
    for (const OpenAirProblem& problem : file.problems) {
        problems.push_back({{"line", problem.line}, {"text", problem.text}});
        plain += "line " + formatInt(problem.line) + ": " + problem.text + "\n";
    }
    plain += formatInt(static_cast<int>(file.airspaces.size())) + " airspaces, " +
             formatInt(static_cast<int>(file.problems.size())) + " problems\n";
    return call.done({{"error", ""}, {"airspaces", airspaces}, {"problems", problems}}, plain);
}

int listAbove(const Invocation& call, GeoPoint point, std::optional<int> altitudeFt) {
    AirspaceSet airspaces;
    airspaces.load(call.dataFolders());
    Json inside = Json::array();
    std::string plain;
    for (const std::size_t i : airspaces.at(point)) {
        const Airspace& airspace = airspaces.all()[i];
        if (altitudeFt && !airspace.reaches(*altitudeFt, {}))
            continue;
        inside.push_back(airspaceJson(airspace));
        plain += airspaceLine(airspace);
    }
    return call.done({{"inside", inside}}, plain);
}

}  // namespace

int runAirspace(Invocation& call) {
    std::vector<std::string> words;
    call.options()
        .add_option("words", words, "list FILE, or LAT LON [ALTITUDE in feet]")
        ->required();
    call.parse();
    if (words.size() == 2 && words[0] == "list")
        return listFile(call, words[1]);
    if (words[0] == "at")
        words.erase(words.begin());
    if (words.size() != 2 && words.size() != 3)
        usageError("airspace takes list FILE or LAT LON [ALTITUDE]");
    return listAbove(
        call, toPosition(toNumber(words[0]), toNumber(words[1])),
        words.size() == 3 ? std::optional(RoundToInt(toNumber(words[2]))) : std::nullopt);
}

}  // namespace korvel
