#pragma once

// What a finger can mean, on the map or in a list.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "geo/GeoPoint.h"
#include "map/MapContent.h"
#include "map/MapView.h"
#include "navdb/records/DatabaseRecord.h"

namespace korvel {

class CKorvelDoc;
class MapFeeds;
struct NearAirport;

enum class TapKind : std::uint8_t { Traffic, Place, Obstacle, Leg, Airspace, Ground };

/// One thing under a finger, with what the card says of it.
struct TapThing {
    TapKind kind = TapKind::Ground;
    GeoPoint position;  ///< where bearing and distance lead to
    std::string ident{};
    std::string name{};    ///< beside it; empty for none
    bool expired = false;  ///< from a database whose date has passed
    std::vector<std::string> lines{};
    std::shared_ptr<const DatabaseRecord> record{};  ///< of a place, of the end of a leg, else null
    std::size_t row = 0;  ///< of a leg: the one of the plan that it leads to
    GeoPoint ground{};    ///< the point under the finger
};

/// Where a finger on the map looks.
struct TapGround {
    const MapView& view;
    const MapFeeds& feeds;
    const std::vector<LabelTarget>& labels;  ///< of the frame that the finger saw
};

/// How near to a symbol of the map a finger means it, in pixels.
inline constexpr double kFingerPixels = 24;

/// What lies under a finger, what is most probably meant first and bare ground, without a place
/// above it, last; never empty. A name stands for its symbol. The document tells of the plan, the
/// databases and the heights.
std::vector<TapThing> thingsAt(Point finger, const TapGround& ground, const CKorvelDoc& document);

/// The same of an airport that a list shows; nothing when the databases no longer have it.
std::optional<TapThing> thingOf(const NearAirport& airport, CKorvelDoc& document);

/// Whether the finger has met something, and not only what lies everywhere.
bool isMet(const TapThing& thing);

}  // namespace korvel
