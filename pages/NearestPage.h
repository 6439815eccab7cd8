#pragma once

#include "cockpit/CockpitData.h"
#include "pages/RowList.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// Where everything stands on the page.
struct NearestLayout {
    RowListLayout list;
    Rect filter;     ///< button: which airports
    Rect emergency;  ///< button
};

NearestLayout layOutNearest(double width, double height, std::size_t count,
                            const RowListView& view);

/// The nearest airports, a row each: bearing, distance, time, whether it lies in gliding range, and
/// the longest runway; without any it says why. When the position is lost the last list stays,
/// faded and with its age. Fills the whole canvas.
void paintNearestPage(Canvas& canvas, const CockpitData& data, const RowListView& view,
                      const MapColorCache& colors);

}  // namespace korvel
