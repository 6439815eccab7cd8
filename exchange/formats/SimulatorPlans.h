#pragma once

#include "exchange/ForeignPlan.h"
#include "exchange/Source.h"

namespace korvel {

// Plans of programs around flight simulators and of planners that are only read.

/// Little Navmap's LNMPLN.
ForeignPlan readLittleNavmap(const Source& source);
/// FlightGear's route manager: a property list with a route.
ForeignPlan readFlightGear(const Source& source);
/// SkyDemon's own. Levels belong to its legs, so there are no altitudes.
ForeignPlan readSkyDemon(const Source& source);

}  // namespace korvel
