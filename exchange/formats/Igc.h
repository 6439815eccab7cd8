#pragma once

#include <optional>
#include <span>
#include <string>

#include "exchange/ForeignPlan.h"
#include "exchange/Source.h"

namespace korvel {

// The gliders' flight recorder format of the FAI, IGC: fixes in B records, times in UTC, heights in
// metres.

bool isIgc(const Source& source);
ForeignTrack readIgc(const Source& source);
/// Without a security record: it does not claim to be one of an approved recorder. A break shows as
/// a gap in time alone.
std::string igcOfTrack(std::span<const std::optional<ForeignTrackPoint>> points);

}  // namespace korvel
