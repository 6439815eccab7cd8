#pragma once

#include <string_view>

#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// What the attitude plug-in has drawn.
struct AttitudeView {
    Bitmap picture;      ///< as large as the canvas; empty without a plug-in
    bool alive = false;  ///< fresh enough to be believed
    /// Why there is no picture; lines separated by "\n".
    std::string_view notice;
};

/// The attitude plug-in's picture, crossed out when it is stale, or how to come by a plug-in.
/// Fills the whole canvas.
void paintAttitudePage(Canvas& canvas, const AttitudeView& view, const MapColorCache& colors);

}  // namespace korvel
