#pragma once

#include <filesystem>
#include <string>

#include "cockpit/ChartCompiling.h"
#include "cockpit/Charts.h"

namespace korvel {

/// What is loaded: each database with its cycle, its expiry and what it holds, a block each.
std::string chartsText(const Charts& charts, std::uint32_t today);

/// What became of a compilation that is finished: what was taken and left out, or why there is no
/// database, and the licence of what it is made of.
std::string compiledText(const ChartCompiling& compiling);

/// How far one has come: "Compiling NAME".
std::string compilingText(const ChartCompiling& compiling);

}  // namespace korvel
