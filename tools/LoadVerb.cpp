#include "tools/Invocation.h"
#include "tools/LoadedDatabase.h"
#include "tools/Verbs.h"

namespace korvel {

int runLoad(Invocation& call) {
    call.declareNow();
    call.parse();
    const LoadedDatabase loaded(call);
    Json databases = Json::array();
    for (const auto& [name, error] : loaded.loader.openedFiles())
        databases.push_back({{"file", name}, {"error", error}});
    Json excluded = Json::array();
    for (const auto& [file, row] : loaded.database.exclusions())
        excluded.push_back({row, file});
    const std::string report = loaded.report.text();
    return call.done({{"report", report},
                      {"databases", databases},
                      {"user", loaded.loader.userRecords().keys()},
                      {"excluded", excluded}},
                     report);
}

}  // namespace korvel
