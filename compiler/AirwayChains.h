#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/AirwayNetwork.h"

namespace korvel {

using AirwayChain = std::vector<AirwayNetwork::PointIndex>;

/// One airway's segments, given in any order and direction, as the fewest natural chains that use
/// each of them once. Unconnected parts (a name used again elsewhere) give chains of their own;
/// where an airway branches, one chain runs straight on through the fork and the others begin or
/// end there; a ring repeats its first point at the end.
std::vector<AirwayChain> chainSegments(std::span<const AirwayNetwork::Segment> segments,
                                       std::span<const AirwayPoint> points);

/// The identifiers joined with spaces in texts of at most `longest` bytes each; every text after
/// the first repeats the last identifier of the one before it.
std::vector<std::string> routeTexts(std::span<const std::string_view> idents, std::size_t longest);

}  // namespace korvel
