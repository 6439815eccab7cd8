#include "tools/PlanInput.h"

#include <iostream>
#include <vector>

#include "config/Text.h"
#include "config/texts/FlightTexts.h"
#include "nav/plan/PlanHints.h"
#include "nav/track/Track.h"
#include "platform/FileIo.h"
#include "platform/PathText.h"
#include "tools/RecordJson.h"

namespace korvel {

PlanInput::PlanInput(LoadedDatabase& loaded, const std::string& file)
    : files(loaded.database, fixes, &loaded.loader.userRecords(), plan) {
    const std::filesystem::path path = pathOf(file);
    const auto bytes = readWholeFile(path);
    error = bytes ? files.OpenPlanFile(path, *bytes)
                  : std::string(text(kFlightTexts.fileOpenError)) + ": " + file;
}

std::string readTrackFile(const std::string& file, Track& track) {
    const auto bytes = readWholeFile(pathOf(file));
    if (!bytes)
        return std::string(text(kFlightTexts.fileOpenError)) + ": " + file;
    return track.ReadTrackText(*bytes) ? std::string()
                                       : std::string(text(kFlightTexts.invalidFormat));
}

void addWaypoint(Json& json, const PlanWaypoint& entry) {
    json["key"] = entry.key;
    json["altitudeFt"] = entry.altitudeFt != kNoAltitudeFt ? Json(entry.altitudeFt) : Json(nullptr);
    addPosition(json, entry.position());
}

void tellHints(const Invocation& call, Json& document, std::span<const PlanWaypoint> entries) {
    const std::vector<std::string> hints = planHints(entries, DistanceUnit::NauticalMiles);
    document["hints"] = hints;
    for (std::size_t i = 0; i < hints.size() && !call.json(); ++i)
        std::cerr << hints[i] << '\n';
}

std::string waypointLine(const PlanWaypoint& entry) {
    return entry.key + altitudeSuffix(entry.altitudeFt) + "  " + positionText(entry.position()) +
           "  " + std::string(entry.record->GetName()) + "\n";
}

}  // namespace korvel
