#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what is said of what stands on the ground and lies above it.
struct GroundTexts {
    Text obstacle{66310, "%s  top %s, %s above ground"};  ///< %s: name, two heights
    Text lit{66311, "lit"};
    Text unverified{66312, "unverified"};
    Text unnamedObstacle{66313, "Obstacle"};
    Text mapFull{66360, "MAP: ALL"};
    Text mapMedium{66361, "MAP: NO NAVAIDS, FIXES, OBSTACLES"};
    Text mapPlain{66362, "MAP: LAND AND PLAN ALONE"};
    Text inAirspace{66340, "AIRSPACE %s"};               ///< %s: class, name, limits
    Text airspaceAhead{66341, "Airspace in %d s: %s"};   ///< %s: the same
    Text airspaceOver{66351, "Airspace %s above: %s"};   ///< %s: height, the same
    Text airspaceUnder{66352, "Airspace %s below: %s"};  ///< %s: height, the same
    Text heightUnknown{66342, "height unknown"};
    Text airspaces{66343, "Airspaces"};
    Text inside{66344, "INSIDE"};
    Text ahead{66345, "AHEAD"};
    Text above{66346, "ABOVE"};
    Text below{66347, "BELOW"};
    Text noAirspaces{66348, "No airspaces are loaded: put OpenAir files into the documents folder"};
    Text noAirspaceNear{66349, "No airspace is near"};
    Text inSeconds{66350, "in %d s"};
};

inline constexpr GroundTexts kGroundTexts{};

}  // namespace korvel
