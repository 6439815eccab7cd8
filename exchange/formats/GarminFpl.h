#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "exchange/ExportPoint.h"
#include "exchange/ForeignPlan.h"
#include "exchange/Source.h"

namespace korvel {

// Flight plans of panel units and tablets: the FlightPlan schema, version 1, of Garmin
// (www8.garmin.com/xmlschemas/FlightPlanv1.xsd). A table of waypoints and a route that refers to
// it.

ForeignPlan readGarminFpl(const Source& source);

/// Identifiers are brought to the schema's [A-Z0-9]{1,12}.
std::string garminFplOfPlan(std::string_view name, std::span<const ExportPoint> points,
                            std::int64_t createdUnixS);

}  // namespace korvel
