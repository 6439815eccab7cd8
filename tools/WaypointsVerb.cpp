#include <string>
#include <string_view>
#include <utility>

#include "base/TextNumbers.h"
#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "exchange/Formats.h"
#include "exchange/UserWaypoints.h"
#include "geo/Geodesy.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "tools/Invocation.h"
#include "tools/RecordJson.h"
#include "tools/Verbs.h"

namespace korvel {

int runWaypoints(Invocation& call) {
    std::string file;
    std::string output;
    call.options().add_option("file", file, "Waypoints of another program: GPX or CUP")->required();
    call.options().add_option("-o", output, "Write them to this \".UDB.TXT\" user database");
    call.parse();
    const auto openError = [](const std::string& name) {
        return std::string(text(kFlightTexts.fileOpenError)) + ": " + name;
    };
    auto bytes = readWholeFile(pathOf(file));
    std::string_view format;
    ForeignWaypoints read = bytes ? readForeignWaypoints(std::move(*bytes), format)
                                  : ForeignWaypoints{.error = openError(file)};
    const UserWaypoints own =
        read.error.empty() ? userWaypoints(std::move(read.waypoints)) : UserWaypoints{};
    Json document{{"error", read.error},
                  {"format", format},
                  {"waypoints", Json::array()},
                  {"notes", own.notes}};
    if (!read.error.empty())
        return call.fail(read.error, document);
    std::string plain;
    for (const ForeignWaypoint& waypoint : own.waypoints) {
        Json& json = document["waypoints"].emplace_back(
            Json{{"ident", waypoint.ident}, {"name", waypoint.name}});
        addPosition(json, waypoint.position);
        json["elevationFt"] =
            waypoint.elevationFt ? Json(RoundToInt(*waypoint.elevationFt)) : Json();
        plain +=
            waypoint.ident + "  " + positionText(waypoint.position) + "  " + waypoint.name + "\n";
    }
    if (!output.empty() && !writeFileAtomically(pathOf(output), userDatabaseText(own.waypoints)))
        return call.fail(openError(output), document);
    return call.done(document, plain);
}

}  // namespace korvel
