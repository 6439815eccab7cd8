#pragma once

#include <string>

#include "compiler/sources/AviationData.h"
#include "compiler/sources/XPlaneFile.h"

namespace korvel {

// Each importer reads one freshly opened file, header included, and adds what it holds to `data`.
// A malformed line is reported and skipped. The result is empty, or why the whole file is refused.

/// apt.dat, versions 850 to 1299: airports (row 1), seaplane bases (16) and heliports (17) with
/// runways (100), water runways (101), helipads (102), frequencies (50 to 56 in 10 kHz, 1050 to
/// 1056 in kHz) and metadata (1302). Closed airports are left out.
[[nodiscard]] std::string importXPlaneAirports(XPlaneFile& file, ImportContext& context,
                                               AviationData& data);

/// nav.dat or earth_nav.dat, versions 810 to 1299: NDB (2), VOR (3), and DME (12, 13), which are
/// kept as NavaidKind::DmeOnly. Parts of instrument landing systems are left out.
[[nodiscard]] std::string importXPlaneNavaids(XPlaneFile& file, ImportContext& context,
                                              AviationData& data);

/// fix.dat or earth_fix.dat, versions 600 to 1299.
[[nodiscard]] std::string importXPlaneFixes(XPlaneFile& file, ImportContext& context,
                                            AviationData& data);

/// awy.dat or earth_awy.dat, versions 640 to 1299. One-way segments are taken like the others:
/// the direction of travel is the pilot's choice.
[[nodiscard]] std::string importXPlaneAirways(XPlaneFile& file, ImportContext& context,
                                              AviationData& data);

}  // namespace korvel
