#pragma once

#include <array>

#include "tools/Invocation.h"

namespace korvel {

int runDraw(Invocation& call);
int runGeo(Invocation& call);
int runLoad(Invocation& call);
int runNavdb(Invocation& call);
int runNmea(Invocation& call);
int runProfile(Invocation& call);
int runScheme(Invocation& call);

/// Every verb, in the order in which the help lists them.
inline constexpr std::array kVerbs = {
    Verb{"draw", "Pictures without a window", runDraw},
    Verb{"geo", "Distances, courses and turns", runGeo},
    Verb{"load", "Load and merge a data folder", runLoad},
    Verb{"navdb", "Build, check and search database files", runNavdb},
    Verb{"nmea", "Decode a receiver's log", runNmea},
    Verb{"profile", "Read or change a settings file", runProfile},
    Verb{"scheme", "The colours of a scheme", runScheme},
};

}  // namespace korvel
