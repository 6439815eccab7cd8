#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: what is said of other aircraft, and of a receiver that measures the attitude.
struct TrafficTexts {
    Text alert{66300, "TRAFFIC %s"};    ///< %s: where, height, distance
    Text caution{66301, "Traffic %s"};  ///< %s: the same
    Text clock{66302, "%d o'clock"};    ///< %d: 1 to 12
    Text title{66303, "Traffic"};
    Text shown{66304, "Show on the &map"};
    Text within{66305, "Not farther &above and below than"};
    Text anyHeight{66306, "whatever height"};
    Text nobody{66307, "No other aircraft is heard of"};
    Text command{66308, "Tra&ffic..."};
    Text measuredAttitude{66309, "RECEIVER'S GYROS"};
};

inline constexpr TrafficTexts kTrafficTexts{};

}  // namespace korvel
