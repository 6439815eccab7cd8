#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "exchange/ExportPoint.h"
#include "exchange/ForeignPlan.h"
#include "exchange/Source.h"

namespace korvel {

// X-Plane's flight plans, versions 3 and 1100: a row for each waypoint,
//   kind ident [via] altitude latitude longitude

bool isXPlaneFms(const Source& source);
ForeignPlan readXPlaneFms(const Source& source);
/// Version 1100.
std::string xplaneFmsOfPlan(std::span<const ExportPoint> points, std::int64_t nowUnixS);

}  // namespace korvel
