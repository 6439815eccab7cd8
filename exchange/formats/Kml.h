#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "exchange/ExportPoint.h"
#include "exchange/ForeignPlan.h"

namespace korvel {

// KML 2.2 (Open Geospatial Consortium), written only: for globes and maps on the desk.

std::string kmlOfPlan(std::string_view name, std::span<const ExportPoint> points);
/// A line for each stretch.
std::string kmlOfTrack(std::span<const std::optional<ForeignTrackPoint>> points);

}  // namespace korvel
