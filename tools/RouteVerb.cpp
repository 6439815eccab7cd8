#include <optional>
#include <string>
#include <vector>

#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/RouteEntry.h"
#include "tools/Invocation.h"
#include "tools/LoadedDatabase.h"
#include "tools/PlanInput.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

Json entriesJson(const std::vector<PlanWaypoint>& entries) {
    Json list = Json::array();
    for (const PlanWaypoint& entry : entries) {
        Json json{{"text", entry.text}};
        if (entry.record)
            addWaypoint(json, entry);
        list.push_back(json);
    }
    return list;
}

}  // namespace

int runRoute(Invocation& call) {
    std::vector<std::string> words;
    bool noAirways = false;
    call.options()
        .add_option("text", words, "Identifiers and airways, separated by spaces")
        ->required();
    call.options().add_flag("--no-airways", noAirways, "Every word is a place");
    call.declareNow();
    call.parse();
    LoadedDatabase loaded(call);
    GeneratedFixes fixes;
    RouteEntry route(loaded.database, fixes, std::nullopt);
    std::string line;
    for (const std::string& word : words)
        line += word + ' ';
    const RouteResult result = route.EnterRoute(line, !noAirways);
    Json document{{"error", result.error}, {"entries", entriesJson(result.entries)}};
    if (!result.error.empty())
        return call.fail(result.error, document);
    tellHints(call, document, result.entries);
    std::string plain;
    for (const PlanWaypoint& entry : result.entries)
        plain += waypointLine(entry);
    return call.done(document, plain);
}

}  // namespace korvel
