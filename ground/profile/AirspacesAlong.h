#pragma once

#include <vector>

#include "ground/airspace/Airspace.h"
#include "ground/profile/ProfileLine.h"

namespace korvel {

class AirspaceSet;

/// A stretch of a line that lies within the borders of an airspace, above or below or in it.
struct AirspaceSlice {
    Airspace airspace;  ///< without its rings
    double fromNm = 0;  ///< along the line
    double toNm = 0;
};

/// All stretches, those of an airspace one behind the other, in the order of the set. None is too
/// short to be found. Null for none.
std::vector<AirspaceSlice> airspacesAlong(const ProfileLine& line, const AirspaceSet* airspaces);

}  // namespace korvel
