#pragma once

// The chart's symbol of each kind of place.

#include "map/layers/PlaceLayout.h"
#include "paint/Canvas.h"

namespace korvel {

class MapColorCache;
struct MapContent;
struct MapView;

/// A scheme may give a symbol the colour of the map, because its terrain is of another one. What
/// nobody could see takes the colour of names instead.
ColorValue visible(ColorValue color, const MapColorCache& colors);

/// Draws the chart's symbol of each kind of place: filled icons or outlines on a small piece of
/// background, as the pilot likes it. The content has places and outlives this.
class PlaceSymbols {
 public:
    explicit PlaceSymbols(const MapContent& content);
    void paint(Canvas& canvas, const PlaceMark& mark) const;

 private:
    [[nodiscard]] Stamp stampOf(const MapPlace& place) const;
    void describeAirport(const MapPlace& place, Stamp& stamp) const;

    const MapView& view_;
    bool icons_;
    ColorValue background_;
    ColorValue airport_;
    ColorValue vor_;
    ColorValue ndb_;
    ColorValue fix_;
};

}  // namespace korvel
