#pragma once

#include <array>

#include "tools/Invocation.h"

namespace korvel {

int runAirspace(Invocation& call);
int runBaseMap(Invocation& call);
int runDraw(Invocation& call);
int runFly(Invocation& call);
int runGdl90(Invocation& call);
int runGeo(Invocation& call);
int runLoad(Invocation& call);
int runNavdb(Invocation& call);
int runNmea(Invocation& call);
int runObstacles(Invocation& call);
int runPlan(Invocation& call);
int runProfile(Invocation& call);
int runReceive(Invocation& call);
int runRoute(Invocation& call);
int runScheme(Invocation& call);
int runTerrain(Invocation& call);
int runTrack(Invocation& call);
int runWaypoints(Invocation& call);

/// Every verb, in the order in which the help lists them.
inline constexpr std::array kVerbs = {
    Verb{"airspace", "The airspaces of a file, and those above a point", runAirspace},
    Verb{"basemap", "What a base map holds, and where it has land", runBaseMap},
    Verb{"draw", "Pictures without a window", runDraw},
    Verb{"fly", "Run the navigator without a window", runFly},
    Verb{"gdl90", "Read the messages of a traffic receiver", runGdl90},
    Verb{"geo", "Distances, courses and turns", runGeo},
    Verb{"load", "Load and merge a data folder", runLoad},
    Verb{"navdb", "Build, check and search database files", runNavdb},
    Verb{"nmea", "Decode a receiver's log", runNmea},
    Verb{"obstacles", "The obstacles near a point", runObstacles},
    Verb{"plan", "Read a flight plan, from and for other programs, too", runPlan},
    Verb{"profile", "Read or change a settings file", runProfile},
    Verb{"receive", "Listen to a receiver in the network", runReceive},
    Verb{"route", "Turn a line of identifiers and airways into a plan", runRoute},
    Verb{"scheme", "The colours of a scheme", runScheme},
    Verb{"terrain", "Heights of a point and along a way", runTerrain},
    Verb{"track", "Read a recorded track, from and for other programs, too", runTrack},
    Verb{"waypoints", "Make a user database of another program's waypoints", runWaypoints},
};

}  // namespace korvel
