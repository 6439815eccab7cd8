#pragma once

#include "cockpit/CockpitData.h"
#include "pages/RowList.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// The nearest airports, a row each; without any it says why. Fills the whole canvas.
void paintNearestPage(Canvas& canvas, const CockpitData& data, const RowListView& view,
                      const MapColorCache& colors);

}  // namespace korvel
