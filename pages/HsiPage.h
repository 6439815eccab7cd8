#pragma once

#include <span>
#include <string>
#include <vector>

#include "cockpit/CockpitData.h"
#include "pages/HsiGeometry.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;

/// What the indicator shows of a situation; its place and type size are left open. Without a track
/// there is no up, so bearing and course are left out then.
HsiState hsiState(const CockpitData& data);

/// The cross-track at full deflection, in the unit of the data: "±1.25 nm".
std::string fullScaleText(const CockpitData& data);

/// The page "HSI": the indicator around the aircraft's point, in the corners what belongs to the
/// leg, and beside the card what comes behind it. Fills the whole canvas.
void paintHsiPage(Canvas& canvas, const CockpitData& data, Point aircraft,
                  const MapColorCache& colors);

/// Where the indicator stands on the map of the page "Map+HSI", where a position is known.
struct HsiOverMap {
    Point aircraft;                 ///< the card's middle
    std::span<const Rect> corners;  ///< boxes of the map that the card keeps off
};

void paintHsiOverMap(Canvas& canvas, const CockpitData& data, const HsiOverMap& place,
                     const MapColorCache& colors);

/// Where the indicator's texts will stand on that page, so that the map's keep out of them.
std::vector<Rect> hsiLabelsOverMap(const TextMeasure& texts, const Rect& page,
                                   const CockpitData& data, const HsiOverMap& place);

}  // namespace korvel
