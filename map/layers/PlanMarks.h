#pragma once

// The waypoints of the plan on the map, with the room of their labels, as numbers.

#include <string>
#include <vector>

#include "cockpit/CockpitData.h"
#include "paint/Canvas.h"
#include "paint/LabelSpace.h"

namespace korvel {

class MapProjection;

/// A waypoint of the plan, or the one of a direct leg, on the map.
struct PlanMark {
    Point at;
    PlanPart part = PlanPart::Ahead;
    std::string label;  ///< name and altitude; empty where there is no room for it
    Point labelAt;      ///< its anchor, see planLabelStyle()
    Rect labelBox;
};

/// How a label is written; without its colour. Its anchor is at the left, in the middle.
TextStyle planLabelStyle(PlanPart part, double textPx);
/// From the middle of a waypoint's symbol to its points, in pixels.
double planSymbolRadius(PlanPart part, double textPx);

/// The waypoints inside the view, the one that is flown to last. Their symbols and labels take
/// their room: the waypoint that is flown to first, then those ahead. Labels keep off `lines` where
/// they can.
std::vector<PlanMark> layOutPlan(const TextMeasure& texts, const CockpitData& data,
                                 const MapProjection& projection, const Rect& view, double textPx,
                                 LabelSpace& labels, const LabelSpace& lines);

}  // namespace korvel
