#pragma once

#include <span>
#include <string>
#include <string_view>

#include "exchange/ExportPoint.h"
#include "exchange/ForeignPlan.h"
#include "exchange/Source.h"

namespace korvel {

// GPX 1.0 and 1.1 (www.topografix.com/gpx.asp): routes, tracks and waypoints.

ForeignPlan readGpxPlan(const Source& source);
ForeignTrack readGpxTrack(const Source& source);
ForeignWaypoints readGpxWaypoints(const Source& source);

std::string gpxOfPlan(std::string_view name, std::span<const ExportPoint> points);
std::string gpxOfTrack(std::span<const std::optional<ForeignTrackPoint>> points);

}  // namespace korvel
