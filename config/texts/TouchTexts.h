#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what a finger on the map or on a list is told, and what it can do there.
struct TouchTexts {
    Text insert{66482, "Insert"};
    Text info{66483, "Info"};
    Text mark{66484, "Mark"};
    Text ground{66485, "Ground %s"};  ///< %s: height above sea
    Text moreAirspaces{66486, "and %d more"};
    Text runway{66487, "RWY %s"};      ///< %s: length, ends and surface of the longest
    Text elevation{66488, "Elev %s"};  ///< %s: height above sea
    Text insertedBefore{66489, "%s inserted before %s"};  ///< %s: waypoint, %s: the next one
    Text insteadOf{66492, "%s instead of %s"};            ///< %s: waypoint, %s: the former one
    Text pull{66493, "Drag it to its new place"};
    Text rowMoved{66494, "%s moved"};                        ///< %s: waypoint
    Text inPlanAlready{66490, "%s is in the plan already"};  ///< %s: waypoint
};

inline constexpr TouchTexts kTouchTexts{};

}  // namespace korvel
