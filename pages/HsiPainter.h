#pragma once

#include <string_view>

#include "pages/HsiGeometry.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Paints the indicator over what is there. `note` is a short text on the card, such as its full
/// scale; empty for none.
void paintHsi(Canvas& canvas, const HsiState& state, const MapColorCache& colors,
              std::string_view note = {});

}  // namespace korvel
