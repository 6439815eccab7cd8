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
    ColorValue glass;
};

// In the order of ColorKey. In the night scheme class B stays blue while the other classes are
// green: that is meant.
// In the glass scheme cyan is for labels alone, magenta for what is flown to, amber and red for
// what warns; the ground is grey enough that all of these stand out over it.
inline constexpr std::array kBuiltInColors = {
    BuiltInColor{"hsi.airplane", Rgb(0, 0, 0), Rgb(255, 255, 255), Rgb(255, 255, 255)},
    BuiltInColor{"hsi.bearing", Rgb(0, 153, 0), Rgb(0, 255, 0), Rgb(112, 214, 140)},
    BuiltInColor{"hsi.line", Rgb(51, 51, 51), Rgb(204, 204, 204), Rgb(148, 162, 178)},
    BuiltInColor{"hsi.needle", Rgb(255, 102, 0), Rgb(255, 255, 0), Rgb(244, 72, 236)},
    BuiltInColor{"hsi.numeral", Rgb(0, 0, 0), Rgb(223, 223, 223), Rgb(246, 249, 252)},
    BuiltInColor{"hsi.track", Rgb(153, 0, 204), Rgb(255, 255, 255), Rgb(255, 255, 255)},
    BuiltInColor{"map.background", Rgb(255, 255, 255), Rgb(0, 0, 0), Rgb(21, 27, 35)},
    BuiltInColor{"map.grid", Rgb(0, 0, 0), Rgb(153, 153, 153), Rgb(104, 118, 132)},
    BuiltInColor{"map.flightplan", Rgb(255, 0, 204), Rgb(204, 0, 204), Rgb(206, 216, 226)},
    BuiltInColor{"map.flightplan.active", Rgb(255, 0, 204), Rgb(255, 0, 255), Rgb(244, 72, 236)},
    BuiltInColor{"map.track", Rgb(128, 0, 255), Rgb(255, 0, 255), Rgb(142, 164, 188)},
    BuiltInColor{"map.airport", Rgb(204, 0, 0), Rgb(153, 0, 0), Rgb(124, 176, 232)},
    BuiltInColor{"map.vor", Rgb(0, 153, 0), Rgb(0, 255, 0), Rgb(150, 164, 236)},
    BuiltInColor{"map.fix", Rgb(102, 102, 102), Rgb(102, 102, 102), Rgb(136, 148, 160)},
    BuiltInColor{"map.ndb", Rgb(255, 102, 0), Rgb(255, 102, 0), Rgb(186, 172, 150)},
    BuiltInColor{"map.navaid", Rgb(0, 0, 0), Rgb(255, 255, 255), Rgb(116, 220, 240)},
    BuiltInColor{"map.navaid.selected", Rgb(255, 0, 102), Rgb(255, 0, 255), Rgb(255, 255, 255)},
    BuiltInColor{"map.info.background", Rgb(0, 255, 255), Rgb(51, 102, 255), Rgb(30, 84, 140)},
    BuiltInColor{"map.info.text", Rgb(0, 0, 0), Rgb(255, 255, 255), Rgb(255, 255, 255)},
    BuiltInColor{"map.runway", Rgb(0, 0, 0), Rgb(255, 255, 255), Rgb(232, 238, 244)},
    BuiltInColor{"map.runway.heading", Rgb(0, 0, 0), Rgb(255, 255, 255), Rgb(116, 220, 240)},
    BuiltInColor{"map.obs.danger", Rgb(255, 0, 0), Rgb(255, 0, 0), Rgb(255, 72, 64)},
    BuiltInColor{"map.obs.caution", Rgb(128, 128, 0), Rgb(255, 128, 0), Rgb(255, 178, 48)},
    BuiltInColor{"map.class_b", Rgb(0, 0, 204), Rgb(0, 0, 204), Rgb(84, 114, 168)},
    BuiltInColor{"map.class_c", Rgb(204, 0, 204), Rgb(0, 204, 0), Rgb(126, 118, 168)},
    BuiltInColor{"map.class_d", Rgb(0, 0, 204), Rgb(0, 204, 0), Rgb(84, 114, 168)},
    BuiltInColor{"map.class_x", Rgb(0, 0, 204), Rgb(0, 204, 0), Rgb(98, 116, 136)},
    BuiltInColor{"map.sua", Rgb(204, 0, 0), Rgb(204, 0, 0), Rgb(184, 140, 128)},
    BuiltInColor{"nav.text", Rgb(255, 255, 255), Rgb(204, 204, 204), Rgb(255, 255, 255)},
    BuiltInColor{"nav.border", Rgb(0, 255, 255), Rgb(0, 204, 204), Rgb(44, 55, 68)},
    BuiltInColor{"nav.background", Rgb(0, 0, 255), Rgb(0, 0, 204), Rgb(9, 13, 18)},
    BuiltInColor{"nav.header", Rgb(0, 0, 255), Rgb(0, 0, 204), Rgb(116, 220, 240)},
    BuiltInColor{"nav.header.background", Rgb(0, 255, 255), Rgb(0, 204, 204), Rgb(18, 24, 32)},
    BuiltInColor{"geo.land", Rgb(238, 232, 170), Rgb(0, 0, 0), Rgb(42, 50, 54)},
    BuiltInColor{"geo.land.max", Rgb(204, 102, 51), Rgb(204, 102, 51), Rgb(178, 166, 148)},
    BuiltInColor{"geo.water", Rgb(102, 153, 255), Rgb(0, 0, 102), Rgb(20, 42, 68)},
    BuiltInColor{"geo.road", Rgb(153, 153, 153), Rgb(102, 102, 51), Rgb(92, 98, 102)},
    BuiltInColor{"geo.railroad", Rgb(153, 153, 153), Rgb(102, 102, 51), Rgb(84, 90, 96)},
    BuiltInColor{"geo.populated", Rgb(204, 204, 204), Rgb(204, 204, 102), Rgb(96, 104, 114)},
    BuiltInColor{"geo.topo.polbnd", Rgb(153, 153, 153), Rgb(51, 51, 51), Rgb(128, 138, 148)},
    BuiltInColor{"geo.topo.label", Rgb(51, 51, 51), Rgb(204, 204, 204), Rgb(196, 206, 216)},
    BuiltInColor{"geo.topo.danger", Rgb(255, 0, 0), Rgb(255, 0, 0), Rgb(255, 72, 64)},
    BuiltInColor{"geo.topo.warning", Rgb(255, 204, 0), Rgb(255, 204, 0), Rgb(255, 178, 48)},
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
