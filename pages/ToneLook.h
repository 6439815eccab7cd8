#pragma once

#include <optional>

#include "cockpit/Modes.h"
#include "paint/MapColorCache.h"

namespace korvel {

/// How what is told stands out: red for warnings, amber for cautions, the colours of the map's
/// information for information, and those of the page for what only is so.
struct ToneLook {
    ColorValue frame;
    ColorValue ground;
    ColorValue ink;
};

/// Nothing stands for what is neither good nor bad.
ToneLook toneLook(std::optional<AlarmUrgency> urgency, const MapColorCache& colors);

}  // namespace korvel
