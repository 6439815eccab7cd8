#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "navdb/search/PlaceSearch.h"

namespace korvel {

/// A place that was found by its name or by its town's.
struct NamedPlace {
    Place place;
    std::string town;         ///< by which it was found; empty when its own name did
    double distanceNm = 0.0;  ///< 0 without a reference position
};

/// The first `limit` places of `kinds` that have, for each of `words` (of nameWords()), a word in
/// their name or their town's that begins so. The nearest come first; without a reference position
/// they come in the order of the words. Files without an index of names give none.
std::vector<NamedPlace> findPlacesByName(const PlaceSources& sources,
                                         std::span<const std::string> words, KindMask kinds,
                                         std::optional<GeoPoint> near, std::size_t limit);

}  // namespace korvel
