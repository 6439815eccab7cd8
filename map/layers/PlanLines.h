#pragma once

// The legs of the plan on the map, as numbers.

#include <cstdint>
#include <span>
#include <vector>

#include "paint/Canvas.h"

namespace korvel {

class LabelSpace;
class MapProjection;
struct CockpitData;

enum class PlanLineKind : std::uint8_t {
    Passed,
    Ahead,
    Beyond,  ///< behind the waypoint that is flown to on a course
    Flown    ///< the active leg, the course towards the waypoint, or the extended center line
};

/// A connected part of a leg on the screen.
struct PlanLine {
    PlanLineKind kind;
    std::vector<Point> points;
};

/// The widest line of the plan reaches no farther from its middle, pixels.
inline constexpr double kPlanLineReach = 9;

/// The lines of the plan that can be seen in the view, in drawing order: what is flown comes last.
std::vector<PlanLine> tracePlan(const CockpitData& data, const MapProjection& projection,
                                const Rect& view);

/// Takes the room of the legs that are flown or ahead: no name is readable under them.
void reservePlanLines(std::span<const PlanLine> lines, LabelSpace& space);

}  // namespace korvel
