#include <string>
#include <vector>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "exchange/ExportPoint.h"
#include "exchange/Formats.h"
#include "exchange/PlanImport.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "tools/Arguments.h"
#include "tools/Invocation.h"
#include "tools/LoadedDatabase.h"
#include "tools/PlanInput.h"
#include "tools/RecordJson.h"
#include "tools/Verbs.h"

namespace korvel {
namespace {

constexpr int kMileDecimals = 1;

struct PlanOptions {
    std::vector<std::string> words;
    std::string output;
    std::string exported;
    std::string format;
    int route = 1;
};

int showPlan(const Invocation& call, const std::string& file, const std::string& output) {
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

std::string fileError(std::string_view error, const std::string& file) {
    return std::string(error) + ": " + file;
}

int importForeign(const Invocation& call, const PlanOptions& options) {
    const std::string& file = options.words[1];
    LoadedDatabase loaded(call);
    auto bytes = readWholeFile(pathOf(file));
    GeneratedFixes fixes;
    const ImportedPlan imported =
        bytes ? importPlan(std::move(*bytes), options.route, loaded.database, fixes)
              : ImportedPlan{.error = fileError(text(kFlightTexts.fileOpenError), file)};
    Json document{{"error", imported.error}, {"format", imported.format}, {"name", imported.name},
                  {"routes", Json::array()}, {"entries", Json::array()},  {"totalNm", nullptr},
                  {"notes", imported.notes}};
    for (const auto& route : imported.routes)
        document["routes"].push_back({{"name", route.name}, {"points", route.points}});
    if (!imported.error.empty())
        return call.fail(imported.error, document);
    GuardedPlan plan;
    *plan.lock() = FlightPlan(imported.entries);
    std::string plain;
    for (const PlanWaypoint& entry : imported.entries) {
        Json& json = document["entries"].emplace_back(Json{
            {"key", entry.key},
            {"name", entry.record->GetName()},
            {"altitudeFt", entry.altitudeFt != kNoAltitudeFt ? Json(entry.altitudeFt) : Json()}});
        addPosition(json, entry.position());
        plain += waypointLine(entry);
    }
    const double totalNm = (*plan.lock())->totalNm();
    document["totalNm"] = totalNm;
    plain += formatFixed(totalNm, kMileDecimals) + " nm\n";
    for (const std::string& note : imported.notes)
        plain += note + "\n";
    const PlanFiles files(loaded.database, fixes, &loaded.loader.userRecords(), plan);
    if (!options.output.empty())
        if (const std::string error = files.savePlanAs(options.output); !error.empty())
            return call.fail(fileError(error, options.output), document);
    return call.done(document, plain);
}

/// A plan of any kind that can be read.
std::string readAnyPlan(LoadedDatabase& loaded, const std::string& file, GeneratedFixes& fixes,
                        std::vector<PlanWaypoint>& entries) {
    auto bytes = readWholeFile(pathOf(file));
    if (!bytes)
        return fileError(text(kFlightTexts.fileOpenError), file);
    ImportedPlan imported = importPlan(std::move(*bytes), 1, loaded.database, fixes);
    if (!imported.format.empty()) {
        entries = std::move(imported.entries);
        return imported.error;
    }
    const PlanInput own(loaded, file);
    if (own.error.empty())
        entries = (*own.plan.lock())->entries();
    return own.error;
}

int exportForeign(const Invocation& call, const PlanOptions& options) {
    const std::string& file = options.words[1];
    if (options.exported.empty())
        usageError("plan export needs -o");
    LoadedDatabase loaded(call);
    GeneratedFixes fixes;
    std::vector<PlanWaypoint> entries;
    if (const auto error = readAnyPlan(loaded, file, fixes, entries); !error.empty())
        return call.fail(error);
    const std::string name = textOf(pathOf(file).stem());
    const auto bytes =
        planAs(options.format, name, exportPoints(entries), call.clock().unixSeconds());
    if (!bytes)
        usageError("plan export needs --format gpx, fpl, kml or fms");
    if (!writeFileAtomically(pathOf(options.exported), *bytes))
        return call.fail(fileError(text(kFlightTexts.fileOpenError), options.exported));
    return call.done({{"error", ""}, {"output", options.exported}, {"points", entries.size()}},
                     options.exported + "\n");
}

}  // namespace

int runPlan(Invocation& call) {
    PlanOptions options;
    call.options()
        .add_option("file", options.words,
                    R"(A ".fp" plan or a ".TXT" waypoint list; or import FILE, export FILE)")
        ->required()
        ->expected(1, 2);
    call.options().add_option("--save", options.output, "Write the plan to this \".fp\" file");
    call.options().add_option("--route", options.route, "import: which route of the file, 1");
    call.options().add_option("--format", options.format, "export: gpx, fpl, kml or fms");
    call.options().add_option("-o", options.exported, "export: the file to write");
    call.declareNow();
    call.parse();
    if (options.words.size() == 1)
        return showPlan(call, options.words[0], options.output);
    if (options.words[0] == "import")
        return importForeign(call, options);
    if (options.words[0] == "export")
        return exportForeign(call, options);
    usageError("plan takes FILE, import FILE or export FILE");
}

}  // namespace korvel
