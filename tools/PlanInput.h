#pragma once

#include <span>
#include <string>

#include "nav/plan/GeneratedFixes.h"
#include "nav/plan/PlanFiles.h"
#include "tools/Invocation.h"
#include "tools/LoadedDatabase.h"

namespace korvel {

class Track;

/// A plan file read as the program does it: a ".fp" file, or a ".TXT" list that is converted into
/// ".fp" files beside it.
struct PlanInput {
    /// The database must outlive the plan.
    PlanInput(LoadedDatabase& loaded, const std::string& file);

    std::string error;  ///< empty on success
    GeneratedFixes fixes;
    GuardedPlan plan;
    PlanFiles files;
};

/// Reads a ".trk" file; the message, empty on success.
std::string readTrackFile(const std::string& file, Track& track);

/// Adds key, altitude and position of an entry.
void addWaypoint(Json& json, const PlanWaypoint& entry);
/// What the pilot should look at again: "hints" of the document, and without JSON a line each on
/// standard error.
void tellHints(const Invocation& call, Json& document, std::span<const PlanWaypoint> entries);
/// An entry in a line for people, with its end.
std::string waypointLine(const PlanWaypoint& entry);

}  // namespace korvel
