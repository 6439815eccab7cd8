#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "navdb/records/RecordKey.h"

namespace korvel {

class DatabaseRecord;
class NavDatabase;

/// A place that a word may be meant to become.
struct PlaceMatch {
    std::string key;  ///< RecordKey
    std::string ident;
    std::string name;
    std::string town;  ///< by whose name it was found; empty for none
    KindMask kind = 0;
    GeoPoint position;
    std::optional<double> distanceNm;  ///< from where the matches are wanted
    bool expired = false;              ///< its data's date has passed
    bool isExact = false;              ///< its identifier is what was typed

    friend bool operator==(const PlaceMatch&, const PlaceMatch&) = default;
};

/// An identifier that is spelled just so is meant where it is this near; about one that is farther
/// away the pilot is asked.
inline constexpr double kSurelyMeantNm = 500.0;

/// Up to `limit` places whose identifiers begin with `typed`, in capitals or not, or words of whose
/// names or towns do, once there are three letters: those within kSurelyMeantNm that are spelled
/// just so first, then the nearest. One that is spelled just so is among them however far it is. Of
/// a short beginning that thousands share, those around `near` are found, and the first of the
/// alphabet. A kind letter in front ("v.SE") asks for that kind alone. A few milliseconds for the
/// first letter in a database of the world.
std::vector<PlaceMatch> placeMatches(const NavDatabase& database, std::string_view typed,
                                     std::optional<GeoPoint> near, std::size_t limit);

/// The first of the matches that is spelled just as it was typed; null when there is none.
const PlaceMatch* meantPlace(std::span<const PlaceMatch> matches);

/// A place by its record, as seen from `near`.
PlaceMatch matchOf(const DatabaseRecord& record, std::optional<GeoPoint> near);

/// Some of `prefixed` that are not there already take places behind `matches`: never in front of
/// what was typed, and four of them at most.
std::vector<PlaceMatch> withPrefixed(std::vector<PlaceMatch> matches,
                                     const std::vector<PlaceMatch>& prefixed);

}  // namespace korvel
