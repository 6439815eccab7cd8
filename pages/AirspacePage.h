#pragma once

#include "cockpit/CockpitData.h"
#include "pages/RowList.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// The airspaces that the aircraft is in, about to enter, below and above, a row each; without any
/// it says why. Fills the whole canvas.
void paintAirspacePage(Canvas& canvas, const CockpitData& data, const RowListView& view,
                       const MapColorCache& colors);

}  // namespace korvel
