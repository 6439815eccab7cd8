#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "navdb/search/PlaceSearch.h"

namespace korvel {

/// Replaces `places` by those of `kinds` whose identifiers begin with this text, byte by byte.
/// Reads at most `rowLimit` rows of each index, in the order of the identifiers, so that those that
/// are spelled just so come first. False when it left some out.
bool findPlacesBeginning(const PlaceSources& sources, std::string_view beginning, KindMask kinds,
                         std::size_t rowLimit, std::vector<Place>& places);

/// Replaces `places` by those of `kinds` with just this identifier, at most `rowLimit` of each
/// index. Quicker than the above where there are few.
void findPlacesNamed(const PlaceSources& sources, std::string_view ident, KindMask kinds,
                     std::size_t rowLimit, std::vector<Place>& places);

}  // namespace korvel
