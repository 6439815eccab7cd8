#pragma once

#include <string>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

class LabelSpace;
class MapProjection;
struct PlaceSet;
struct MapFrame;

/// The distance of a ring, written on it.
struct RingLabel {
    std::string text;
    Point at;  ///< its middle
    Rect box;
};

/// Finds the rings' distances their room: ahead and to the side before behind, and where no place's
/// symbol lies if there is such a point. `places` may be null.
std::vector<RingLabel> layOutRingLabels(const TextMeasure& texts, const MapProjection& projection,
                                        Point aircraft, int rangeNm, double textPx,
                                        const PlaceSet* places, LabelSpace& labels);

/// Circles around the aircraft at the display range and at half of it.
void paintRangeRings(const MapFrame& frame, Canvas& canvas);
/// Their distances, over the symbols that lie there.
void paintRingLabels(const MapFrame& frame, Canvas& canvas);

}  // namespace korvel
