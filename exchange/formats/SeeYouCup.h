#pragma once

#include "exchange/ForeignPlan.h"
#include "exchange/Source.h"

namespace korvel {

// SeeYou's CUP: waypoints in comma separated values, and behind a mark tasks that name them.

bool isSeeYouCup(const Source& source);
ForeignPlan readSeeYouTasks(const Source& source);
ForeignWaypoints readSeeYouWaypoints(const Source& source);

}  // namespace korvel
