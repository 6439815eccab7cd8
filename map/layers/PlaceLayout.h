#pragma once

// Which places are drawn in one frame, where their symbols and names stand, as numbers.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cockpit/PlaceSet.h"
#include "map/MapViewport.h"
#include "paint/Canvas.h"

namespace korvel {

struct LabelRoom;
struct MapContent;

/// A place on the screen.
struct PlaceMark {
    const MapPlace* place = nullptr;
    Point at;
    Rect area{};                  ///< that its symbol, or its runways to scale, take up
    bool runwaysToScale = false;  ///< they stand for the symbol
};

/// A name whose room was claimed.
struct PlaceLabel {
    Point anchor;
    std::string text;
    TextStyle style;
};

/// What of the places is drawn in one frame, and where; the most important ones first.
struct PlaceLayout {
    std::vector<PlaceMark> marks;
    std::vector<PlaceLabel> names;
};

/// Takes the room of symbols and names. Less important places give way: far out the whole place,
/// close by its name only. The content has places. `beforeNavaids` is called once, when all that is
/// more important than any navaid or fix has its room, for what comes in between.
PlaceLayout layOutPlaces(const MapContent& content, const TextMeasure& texts, LabelRoom& room,
                         const std::function<void()>& beforeNavaids);

/// How far the stroke along an airport's longest runway reaches out of its circle.
inline constexpr double kRunwayStrokeShare = 1.7;

/// True direction of that stroke in whole degrees; nothing when it is unknown, and for heliports
/// and seaplane bases.
std::optional<int> directionOf(const MapPlace& airport);

/// Half the size of a symbol in pixels.
double symbolRadius(PlaceClass placeClass, double textPx);
/// The same of a place: airports are larger with a long runway, and smaller with a short one and
/// when they are private.
double symbolRadius(const MapPlace& place, double textPx);

/// Whether the airport's runways are long enough on the screen to be drawn in its symbol's place.
bool showsRunways(const MapPlace& airport, const MapProjection& projection, int rangeNm,
                  double textPx, const MapPlaceOptions& options);

/// A label's text: the identifier, of a navaid close by its frequency too; in brackets when the
/// data are out of date.
std::string labelOf(const MapPlace& place, int rangeNm);

}  // namespace korvel
