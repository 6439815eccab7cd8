#pragma once

#include <functional>
#include <span>
#include <vector>

#include "map/MapView.h"

namespace korvel {

class GroundPicture;
class MapColorCache;
class MeasureTool;
struct PlanBand;
class TrackLevels;
struct Obstacle;
struct Town;
struct CockpitData;
struct PlaceSet;
struct Text;

/// Where a name stands on the map, and the symbol that it belongs to: a finger on the one means the
/// other.
struct LabelTarget {
    Rect label;
    Point symbol;
};

/// What one frame of the map is drawn from: all that a layer may look at. Whoever draws the map
/// fills it in, the feeds theirs; everything outlives the frame, and nothing changes while it is
/// laid out and painted.
struct MapContent {
    const CockpitData& data;
    const MapColorCache& colors;
    MapView view;
    bool turns = true;       ///< the aircraft points up; otherwise it points along its track
    bool moved = false;      ///< the pilot looks elsewhere than at the aircraft
    bool trustMarks = true;  ///< stand on the map, because there is no status line above it

    /// What the pilot must know of the heights in colours; null for nothing.
    const Text* terrainNote = nullptr;
    const Text* sparseNote = nullptr;          ///< that not all is shown; null where all is
    GroundPicture* ground = nullptr;           ///< kept from frame to frame; null for none
    const std::vector<Town>* towns = nullptr;  ///< around the view, the weightiest first; or null
    const std::vector<Obstacle>* obstacles =
        nullptr;                           ///< around the view, the tallest first; or null
    bool obstacleHeights = true;           ///< are written beside them
    const PlaceSet* places = nullptr;      ///< from the databases; null for none
    const TrackLevels* track = nullptr;    ///< of CockpitData::track; null for none
    const MeasureTool* measure = nullptr;  ///< the ruler; null for none
    const PlanBand* band = nullptr;        ///< what is pulled of the plan; null for nothing

    std::vector<LabelTarget>* labels = nullptr;  ///< takes the names' places; null: nobody asks

    /// Paints the instrument that lies over the map and under its boxes; empty for none.
    std::function<void()> overMap{};
    std::span<const Rect> covered{};  ///< what that covers: labels keep out of it
    std::span<const Rect> alarms{};   ///< boxes that will lie over all

    /// The aircraft on the screen, live or where it was last; far outside any view when it never
    /// had a position.
    Point aircraft() const;
};

}  // namespace korvel
