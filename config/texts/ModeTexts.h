#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: the marks of the status line, as short as they can be.
struct ModeTexts {
    Text simulator{62200, "SIM"};
    Text demonstration{62201, "DEMO"};
    Text replay{62202, "REPLAY"};
    Text replayEnded{62203, "REPLAY ENDED"};
    Text noGps{62204, "NO GPS"};
    Text fix2D{62205, "2D"};
    Text suspended{62206, "SUSP"};
    Text direct{62207, "D\u2192"};
    Text obs{62208, "OBS %s\u00b0"};  ///< %s: course
    Text recording{62209, "REC"};
};

inline constexpr ModeTexts kModeTexts{};

}  // namespace korvel
