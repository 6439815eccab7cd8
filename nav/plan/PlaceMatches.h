#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "navdb/records/RecordKey.h"

namespace korvel {

class NavDatabase;

/// A place that a word may be meant to become.
struct PlaceMatch {
    std::string key;  ///< RecordKey
    std::string ident;
    std::string name;
    KindMask kind = 0;
    GeoPoint position;
    std::optional<double> distanceNm;  ///< from where the matches are wanted
    bool expired = false;

    friend bool operator==(const PlaceMatch&, const PlaceMatch&) = default;
};

/// Up to `limit` places whose identifiers begin with `typed`, in capitals or not; those that are
/// spelled just so first, then the nearest. Of a short beginning that thousands share, those around
/// `near` are found, and the first of the alphabet. A kind letter in front ("v.SE") asks for that
/// kind alone. A few milliseconds for the first letter in a database of the world.
std::vector<PlaceMatch> placeMatches(const NavDatabase& database, std::string_view typed,
                                     std::optional<GeoPoint> near, std::size_t limit);

/// Some of `prefixed` that are not there already take places behind `matches`: never in front of
/// what was typed, and four of them at most.
std::vector<PlaceMatch> withPrefixed(std::vector<PlaceMatch> matches,
                                     const std::vector<PlaceMatch>& prefixed);

}  // namespace korvel
