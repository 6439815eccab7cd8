#pragma once

#include "compiler/sources/AviationData.h"
#include "compiler/sources/ImportLog.h"

namespace korvel {

/// Makes one picture of what the sources say piece by piece:
/// - a distance measuring part joins the VOR or NDB of its name at the same place, which then shows
///   as one station; one that stands alone is left out;
/// - entries that say the same place again are dropped, and so is an airport whose identifier is
///   taken, since an airport's runways and frequencies are found by it;
/// - airway points find their navaid or fix; those that only the airways know, and stations left
///   out above, become fixes, because a route along the airway needs every one of its points;
/// - fixes get their usage from the airways that they lie on;
/// - airports whose source tells no variation get that of the nearest station.
void consolidate(AviationData& data, ImportLog& log);

/// Leaves of older data what `today` has not: fixes and airways. A point of an airway whose station
/// is no more becomes a fix. Both have been consolidated.
void keepAirways(AviationData& past, AviationData& today, ImportLog& log);

}  // namespace korvel
