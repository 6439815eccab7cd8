#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "cockpit/CockpitData.h"
#include "map/MapGrid.h"
#include "map/MapViewport.h"
#include "map/layers/ApproachLayer.h"
#include "map/layers/MapFurniture.h"
#include "map/layers/MeasureLayer.h"
#include "map/layers/PlanLines.h"
#include "map/layers/PlanMarks.h"
#include "map/layers/RangeRingLayer.h"
#include "paint/Canvas.h"
#include "paint/LabelSpace.h"
#include "paint/MapColorCache.h"

namespace korvel {

class TrackLevels;
struct PlaceSet;

/// A name or a number whose room was claimed.
struct MapName {
    Point anchor;
    std::string text;
    TextStyle style;
};

/// All that a map layer may look at while it paints one frame. Everything is const but the labels'
/// room and the names, which all layers share.
struct MapFrame {
    const CockpitData& data;
    const MapColorCache& colors;
    const MapProjection& projection;
    Point aircraft;  ///< live or last; far outside the view when the map was moved there
    Rect view;       ///< the canvas
    int rangeNm;     ///< current display range
    bool turns;      ///< the map turns with the aircraft, which then points up
    double textPx;   ///< type size of labels
    const MapFurniture& furniture;
    LabelSpace& labels;
    /// What stands on the ground is named over the lines: half a name reads as another one.
    std::vector<MapName>& names;
    const LabelSpace& planLines;           ///< the plan's legs, which names keep off where they can
    const PlaceSet* places = nullptr;      ///< from the databases; null for none
    const TrackLevels* track = nullptr;    ///< of CockpitData::track; null for none
    const MeasureTool* measure = nullptr;  ///< the ruler; null for none
    std::optional<MeasureLook> measureLook{};
    std::span<const GridLine> grid{};               ///< meridians and parallels
    std::span<const PlanLine> plan{};               ///< its legs
    std::span<const PlanMark> planMarks{};          ///< with the room that their labels have
    std::span<const ApproachMark> approachMarks{};  ///< likewise
    std::span<const RingLabel> ringLabels{};        ///< likewise
    /// Paints the instrument that lies over the map on this page; empty for none.
    const std::function<void()>& overMap;
};

}  // namespace korvel
