#pragma once

// Where the boxes along the map's edges stand, as numbers.

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cockpit/CockpitData.h"
#include "map/MapViewport.h"
#include "paint/Canvas.h"

namespace korvel {

struct Text;

/// A short text on a small box of its own.
struct InfoBox {
    Rect area;
    std::string text;  ///< one line, or two in notes and messages
};

/// A length on the map with its ticks and its text.
struct ScaleBar {
    Rect area;  ///< of the box around it
    Segment bar;
    std::string text;
};

/// What stands on top of the map along its edges, as numbers. Nothing of it comes near the
/// aircraft, and map labels keep out of it.
struct MapFurniture {
    Rect northArrow;                 ///< square, top left
    InfoBox range;                   ///< top right
    ScaleBar scale;                  ///< bottom left
    std::vector<InfoBox> notes;      ///< bottom right, the first one lowest: charts, source, status
    std::optional<InfoBox> message;  ///< passing, at the lower edge
    std::optional<InfoBox> alarm;    ///< position lost, top middle
    std::vector<Rect> alarms;        ///< all others, which are painted later

    /// All boxes.
    std::vector<Rect> areas() const;
};

/// What stands on the map beside its data.
struct MapState {
    bool moved = false;             ///< away from the aircraft
    const Text* sparse = nullptr;   ///< that not all is shown
    const Text* terrain = nullptr;  ///< of the ground's colours; null for nothing
    bool trustMarks = true;         ///< what else would not be told: the simulator, old charts
    std::span<const Rect> alarms{};
};

/// `textPx` is the type size of the map's labels.
MapFurniture layOutFurniture(const TextMeasure& texts, const Rect& view, const CockpitData& data,
                             const MapProjection& projection, int rangeNm, double textPx,
                             const MapState& state = {});

/// What the scale, at its longest, and the notes cover at the map's lower edge while the map is
/// not moved: an instrument that lies over the map keeps off it.
std::vector<Rect> lowerCorners(const TextMeasure& texts, const Rect& view, const CockpitData& data,
                               double textPx, bool trustMarks = true);

/// The longest round number (1, 2 or 5 times a power of ten) of the unit that is not longer than
/// `longestNm`, in nautical miles.
double roundLengthNm(double longestNm, DistanceUnit unit);

}  // namespace korvel
