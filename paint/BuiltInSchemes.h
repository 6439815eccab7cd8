#pragma once

// The colours of the schemes that the program brings along.

#include <array>
#include <string_view>

#include "paint/Color.h"
#include "paint/MapColorCache.h"

namespace korvel {

/// One row of the built-in colour table.
struct BuiltInColor {
    std::string_view key;
    ColorValue day;
    ColorValue night;
};

// In the order of ColorKey. In the night scheme class B stays blue while the other classes are
// green: that is meant.
inline constexpr std::array kBuiltInColors = {
    BuiltInColor{"hsi.airplane", Rgb(0, 0, 0), Rgb(255, 255, 255)},
    BuiltInColor{"hsi.bearing", Rgb(0, 153, 0), Rgb(0, 255, 0)},
    BuiltInColor{"hsi.line", Rgb(51, 51, 51), Rgb(204, 204, 204)},
    BuiltInColor{"hsi.needle", Rgb(255, 102, 0), Rgb(255, 255, 0)},
    BuiltInColor{"hsi.numeral", Rgb(0, 0, 0), Rgb(223, 223, 223)},
    BuiltInColor{"hsi.track", Rgb(153, 0, 204), Rgb(255, 255, 255)},
    BuiltInColor{"map.background", Rgb(255, 255, 255), Rgb(0, 0, 0)},
    BuiltInColor{"map.grid", Rgb(0, 0, 0), Rgb(153, 153, 153)},
    BuiltInColor{"map.flightplan", Rgb(255, 0, 204), Rgb(204, 0, 204)},
    BuiltInColor{"map.flightplan.active", Rgb(255, 0, 204), Rgb(255, 0, 255)},
    BuiltInColor{"map.track", Rgb(128, 0, 255), Rgb(255, 0, 255)},
    BuiltInColor{"map.airport", Rgb(204, 0, 0), Rgb(153, 0, 0)},
    BuiltInColor{"map.vor", Rgb(0, 153, 0), Rgb(0, 255, 0)},
    BuiltInColor{"map.fix", Rgb(102, 102, 102), Rgb(102, 102, 102)},
    BuiltInColor{"map.ndb", Rgb(255, 102, 0), Rgb(255, 102, 0)},
    BuiltInColor{"map.navaid", Rgb(0, 0, 0), Rgb(255, 255, 255)},
    BuiltInColor{"map.navaid.selected", Rgb(255, 0, 102), Rgb(255, 0, 255)},
    BuiltInColor{"map.info.background", Rgb(0, 255, 255), Rgb(51, 102, 255)},
    BuiltInColor{"map.info.text", Rgb(0, 0, 0), Rgb(255, 255, 255)},
    BuiltInColor{"map.runway", Rgb(0, 0, 0), Rgb(255, 255, 255)},
    BuiltInColor{"map.runway.heading", Rgb(0, 0, 0), Rgb(255, 255, 255)},
    BuiltInColor{"map.obs.danger", Rgb(255, 0, 0), Rgb(255, 0, 0)},
    BuiltInColor{"map.obs.caution", Rgb(128, 128, 0), Rgb(255, 128, 0)},
    BuiltInColor{"map.class_b", Rgb(0, 0, 204), Rgb(0, 0, 204)},
    BuiltInColor{"map.class_c", Rgb(204, 0, 204), Rgb(0, 204, 0)},
    BuiltInColor{"map.class_d", Rgb(0, 0, 204), Rgb(0, 204, 0)},
    BuiltInColor{"map.class_x", Rgb(0, 0, 204), Rgb(0, 204, 0)},
    BuiltInColor{"map.sua", Rgb(204, 0, 0), Rgb(204, 0, 0)},
    BuiltInColor{"nav.text", Rgb(255, 255, 255), Rgb(204, 204, 204)},
    BuiltInColor{"nav.border", Rgb(0, 255, 255), Rgb(0, 204, 204)},
    BuiltInColor{"nav.background", Rgb(0, 0, 255), Rgb(0, 0, 204)},
    BuiltInColor{"nav.header", Rgb(0, 0, 255), Rgb(0, 0, 204)},
    BuiltInColor{"nav.header.background", Rgb(0, 255, 255), Rgb(0, 204, 204)},
    BuiltInColor{"geo.land", Rgb(238, 232, 170), Rgb(0, 0, 0)},
    BuiltInColor{"geo.land.max", Rgb(204, 102, 51), Rgb(204, 102, 51)},
    BuiltInColor{"geo.water", Rgb(102, 153, 255), Rgb(0, 0, 102)},
    BuiltInColor{"geo.road", Rgb(153, 153, 153), Rgb(102, 102, 51)},
    BuiltInColor{"geo.railroad", Rgb(153, 153, 153), Rgb(102, 102, 51)},
    BuiltInColor{"geo.populated", Rgb(204, 204, 204), Rgb(204, 204, 102)},
    BuiltInColor{"geo.topo.polbnd", Rgb(153, 153, 153), Rgb(51, 51, 51)},
    BuiltInColor{"geo.topo.label", Rgb(51, 51, 51), Rgb(204, 204, 204)},
    BuiltInColor{"geo.topo.danger", Rgb(255, 0, 0), Rgb(255, 0, 0)},
    BuiltInColor{"geo.topo.warning", Rgb(255, 204, 0), Rgb(255, 204, 0)},
};
static_assert(kBuiltInColors.size() == kColorKeyCount);

/// What the second day scheme changes in the day scheme. Its two obstacle colours are no constants:
/// they follow the terrain's, see ColorScheme.cpp.
struct OverridingColor {
    std::string_view key;
    ColorValue color;
};
inline constexpr std::array kSecondDayColors = {
    OverridingColor{"map.vor", Rgb(255, 255, 255)},
    OverridingColor{"geo.land", Rgb(0, 192, 128)},
    OverridingColor{"geo.populated", Rgb(238, 232, 170)},
    OverridingColor{"map.airport", Rgb(153, 0, 204)},
    OverridingColor{"hsi.bearing", Rgb(255, 102, 0)},
};

}  // namespace korvel
