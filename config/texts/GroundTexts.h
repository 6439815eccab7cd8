#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what is said of what stands on the ground and lies above it.
struct GroundTexts {
    Text obstacle{66310, "%s  top %s, %s above ground"};  ///< %s: name, two heights
    Text lit{66311, "lit"};
    Text unverified{66312, "unverified"};
    Text unnamedObstacle{66313, "Obstacle"};
};

inline constexpr GroundTexts kGroundTexts{};

}  // namespace korvel
