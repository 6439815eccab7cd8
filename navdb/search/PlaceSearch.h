#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "navdb/file/DatabaseFile.h"
#include "navdb/search/Place.h"
#include "navdb/user/UserRecordStore.h"

namespace korvel {

struct IdentifierIndexName {
    std::string_view name;
    KindMask kinds = 0;  ///< of the places in it
};
inline constexpr std::array<IdentifierIndexName, 4> kIdentifierIndexes{
    {{"AptKey", kAirportKind},
     {"Ap2Key", kAirportKind},
     {"NavKey", kVorKind | kNdbKind},
     {"WptKey", kFixKind}}};

/// A place that is never to be returned. Its row stands in several indexes at different offsets,
/// so it is known by what it says.
struct ExcludedPlace {
    int file = 0;
    GeoPoint position;
    Ident ident;
};

/// Where a search finds its places; everything must outlive the search.
struct PlaceSources {
    std::span<const std::unique_ptr<DatabaseFile>> files;
    std::span<const ExcludedPlace> exclusions;  ///< in ascending order of latitude
    const UserRecordStore* userRecords = nullptr;
};

[[nodiscard]] bool isExcluded(const PlaceSources& sources, const Place& place);
[[nodiscard]] Place placeOfUser(const DatabaseRecord& record);

/// Replaces `places` by those of `kinds` in the box that the filter accepts, `limit` at most.
void findPlacesIn(const PlaceSources& sources, const GeoBox& box, KindMask kinds, std::size_t limit,
                  const PlaceFilter& accept, std::vector<Place>& places);

/// The nearest `count` places of `kinds` within `withinNm`, nearest first.
std::vector<NearPlace> findNearest(const PlaceSources& sources, GeoPoint position, KindMask kinds,
                                   std::size_t count, double withinNm);

}  // namespace korvel
