#pragma once

#include <string>

#include "navdb/records/AirportRecord.h"

namespace korvel {

/// "08/26   4000 x 98 ft   ASPH   right pattern 26", as far as it is known; in metres where
/// `altUnit` is 1.
std::string runwayText(const RunwayRecord& runway, int altUnit);

/// "TWR   118.100".
std::string commText(const CommFreqRecord& comm);

}  // namespace korvel
