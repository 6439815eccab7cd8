#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "navdb/search/NameSearch.h"

namespace korvel {

/// Adds the airports around the towns in whose names words begin with each of `words` (of
/// nameWords()), those that are there already left out: a few for each of the nearest towns or,
/// without a reference position, of the cities. `towns` is a file of towns.
void addAirportsOfTowns(const PlaceSources& sources, const DatabaseFile& towns,
                        std::span<const std::string> words, std::optional<GeoPoint> near,
                        std::vector<NamedPlace>& places);

}  // namespace korvel
