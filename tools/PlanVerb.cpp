#include <string>

#include "base/TextNumbers.h"
#include "platform/PathText.h"
#include "tools/Invocation.h"
#include "tools/LoadedDatabase.h"
#include "tools/PlanInput.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

constexpr int kMileDecimals = 1;

}  // namespace

int runPlan(Invocation& call) {
    std::string file;
    std::string output;
    call.options()
        .add_option("file", file, R"(A ".fp" plan or a ".TXT" waypoint list)")
        ->required();
    call.options().add_option("--save", output, "Write the plan to this \".fp\" file");
    call.declareNow();
    call.parse();
    LoadedDatabase loaded(call);
    const PlanInput input(loaded, file);
    Json document{{"error", input.error}, {"entries", Json::array()}, {"totalNm", nullptr}};
    if (!input.error.empty())
        return call.fail(input.error, document);
    std::string plain;
    {
        const auto plan = input.plan.lock();
        for (const PlanWaypoint& entry : (*plan)->entries()) {
            addWaypoint(document["entries"].emplace_back(Json::object()), entry);
            plain += waypointLine(entry);
        }
        document["totalNm"] = (*plan)->totalNm();
        tellHints(call, document, (*plan)->entries());
        plain += formatFixed((*plan)->totalNm(), kMileDecimals) + " nm\n";
    }
    if (!output.empty()) {
        if (const std::string error = input.files.savePlanAs(pathOf(output)); !error.empty())
            return call.fail(error + ": " + output, document);
    }
    return call.done(document, plain);
}

}  // namespace korvel
